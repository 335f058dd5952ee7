#ifndef KORVOQRPARSER_EXPLANATION_VISIBLETEXT_H
#define KORVOQRPARSER_EXPLANATION_VISIBLETEXT_H

#include <cstddef>
#include <initializer_list>
#include <string>
#include <string_view>

/// Texts of a payload, made fit for sentences. Any bytes are allowed; the results are UTF-8.
namespace korvo {

/// The text in quotation marks. Controls and blanks other than the space become escapes such as \x1B or
/// \u{202E}, as do bytes that are not UTF-8; quotation marks and backslashes get a backslash. A text of more
/// than 40 characters is cut, and ends with dots.
std::string inQuotes(std::string_view text);

/// The place of the first byte that is not UTF-8; the text's size if there is none.
std::size_t firstMalformedByte(std::string_view text) noexcept;

/// The text with bytes that are not UTF-8 written as \xHH. If there are any, backslashes are doubled, so that
/// the result says which are which; otherwise nothing changes.
std::string withVisibleBytes(std::string_view text);

/// The parts, one after another. Takes less code than a chain of sums.
std::string joined(std::initializer_list<std::string_view> parts);

/// The sentence with a capital at its start.
std::string capitalised(std::string sentence);

/// "1 character", "2 characters".
std::string counted(std::size_t count, std::string_view noun);

}  // namespace korvo

#endif
