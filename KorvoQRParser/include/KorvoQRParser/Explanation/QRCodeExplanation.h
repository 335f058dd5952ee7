#ifndef KORVOQRPARSER_EXPLANATION_QRCODEEXPLANATION_H
#define KORVOQRPARSER_EXPLANATION_QRCODEEXPLANATION_H

#include <KorvoQRParser/KorvoQRParserExport.h>

#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// @file
/// The explanation of a payload, which QRCodeExplainer makes, and its parts.
///
/// All are values that own their texts. Copies share the facts, which never change, so any number of threads
/// may read them. References and views into an object are valid while it or one of its copies exists. A moved
/// object can only be destroyed or assigned to. Offsets and lengths count user-perceived characters (extended
/// grapheme clusters, UAX #29).
///
/// Texts of the payload come from a stranger. A value can hold control characters, markup, or characters that
/// reverse the direction of writing; escape it before you show it. In sentences (causes, reasons, facts and
/// cautions) such texts are in quotation marks, with controls and unusual blanks as escapes such as \\x1B or
/// \\u{202E}. They are still no markup.

namespace korvo {

/// A rule that the payload violates.
class KORVO_EXPORT QRCodeViolation {
  public:
    /// The code, as in QRCodeError::errorCodes.
    const std::string& code() const noexcept;
    /// The code's published name.
    std::string_view name() const noexcept;
    /// The code's meaning, one sentence in plain English.
    std::string_view meaning() const noexcept;
    /// What was found, and what the rule wants: "28 characters, at most 25". Empty if the meaning says it
    /// all.
    const std::string& fact() const noexcept;

    /// Private to the library, which makes these objects.
    struct Facts;
    /// Private to the library.
    explicit QRCodeViolation(std::shared_ptr<const Facts> facts) noexcept;

  private:
    std::shared_ptr<const Facts> facts_;
};

/// An element of the payload: a tag, a length and a value.
class KORVO_EXPORT QRCodeElement {
  public:
    /// The characters before the element in the payload.
    std::size_t offset() const noexcept;
    /// The tag as written, such as "59", or "a" in the one-character format.
    const std::string& tag() const noexcept;
    /// The length field as written, such as "10", or "c" in the one-character format.
    const std::string& length() const noexcept;
    /// The value as written; it can be empty in the one-character format only.
    const std::string& value() const noexcept;
    /// The tag as the catalogue of codes writes it: "59", "A", or "62/01" inside tag 62.
    const std::string& name() const noexcept;
    /// What the tag is for, in a few words; "Not kept" for the root tags that the record does not have.
    std::string_view meaning() const noexcept;
    /// The rules that this element violates, in the order of their codes.
    const std::vector<QRCodeViolation>& violations() const noexcept;
    /// The elements inside tag 62; empty for every other tag.
    const std::vector<QRCodeElement>& elements() const noexcept;

    /// Private to the library, which makes these objects.
    struct Facts;
    /// Private to the library.
    explicit QRCodeElement(std::shared_ptr<const Facts> facts) noexcept;

  private:
    std::shared_ptr<const Facts> facts_;
};

/// The kinds of faults that keep a payload from being split into elements. A later version may add some.
enum class QRCodeFaultKind : unsigned char {
    notText,          ///< bytes that are not UTF-8
    tooShort,         ///< fewer than two characters
    wrongLength,      ///< a length that is no number, or not the length of its value
    endsEarly,        ///< the text ends inside an element
    repeatedTag,      ///< a tag occurs twice
    unknownTag,       ///< a tag that the format does not have
    missingChecksum,  ///< the payload ends without tag 63
    checksumNotLast,  ///< an element follows tag 63
};

/// Why a payload cannot be split into elements, as the parser meets it: the symptom, at the first place where
/// splitting fails. QRCodeExplanation::causes has the likely causes, which are often further left.
class KORVO_EXPORT QRCodeFault {
  public:
    /// What kind of fault it is.
    QRCodeFaultKind kind() const noexcept;
    /// The kind in plain words: "a length is wrong".
    std::string_view kindText() const noexcept;
    /// The decoder's name for it: "InvalidLength", "InvalidTagLength", "RepeatedTag" or "InvalidTag".
    std::string_view error() const noexcept;
    /// The characters before the fault in the payload.
    std::size_t offset() const noexcept;
    /// The bytes before the fault, if the fault is bytes that are not UTF-8; otherwise absent.
    std::optional<std::size_t> byteOffset() const noexcept;
    /// The tag concerned, as QRCodeElement::name writes it; for an unknown tag, the tag as written. Empty if
    /// the fault is not about a tag.
    const std::string& tag() const noexcept;
    /// One sentence without a full stop, in plain English.
    const std::string& reason() const noexcept;
    /// The piece of the payload before the fault, at most 36 bytes.
    const std::string& before() const noexcept;
    /// The piece of the payload that begins at the fault, 24 bytes or a little more. No code point is cut.
    const std::string& after() const noexcept;

    /// Private to the library, which makes these objects.
    struct Facts;
    /// Private to the library.
    explicit QRCodeFault(std::shared_ptr<const Facts> facts) noexcept;

  private:
    std::shared_ptr<const Facts> facts_;
};

/// The checksum of a payload (CRC-16/CCITT-FALSE): the one that it has, and the one that it should have.
class KORVO_EXPORT QRCodeChecksum {
  public:
    /// The value of tag 63. If the payload cannot be split, its last four characters.
    const std::string& found() const noexcept;
    /// The checksum of the text as it stands, four hexadecimal digits in upper case. It covers everything
    /// except the last four characters; if tag 63 does not have four, everything before tag 63 and "6304".
    const std::string& computed() const noexcept;
    /// Whether the last four characters are the checksum of the text before them, in either letter case. This
    /// can be so for a payload that cannot be split: then its generator wrote it as it is, and nothing
    /// happened to it on the way.
    bool isMatching() const noexcept;

    /// Private to the library, which makes these objects.
    struct Facts;
    /// Private to the library.
    explicit QRCodeChecksum(std::shared_ptr<const Facts> facts) noexcept;

  private:
    std::shared_ptr<const Facts> facts_;
};

/// A change of the original payload: at an offset, a text is replaced with another. An insertion replaces the
/// empty text; a deletion has an empty replacement.
class KORVO_EXPORT QRCodeEdit {
  public:
    /// The characters of the original payload before the change.
    std::size_t offset() const noexcept;
    /// The text of the original, whole characters; empty for an insertion.
    const std::string& from() const noexcept;
    /// The text in its place; empty for a deletion.
    const std::string& to() const noexcept;

    /// Private to the library, which makes these objects.
    struct Facts;
    /// Private to the library.
    explicit QRCodeEdit(std::shared_ptr<const Facts> facts) noexcept;

  private:
    std::shared_ptr<const Facts> facts_;
};

/// A payload that the parser accepts, made from a refused one by changing its form: lengths, checksum, order,
/// letter case of the country, letters of a currency, characters around or inserted into the text,
/// percent-encoding, an exact duplicate. No digit of an identifier, an amount or a fee, and no character of a
/// name is changed.
///
/// It is a guess about what the merchant meant. The library applies none by itself, and neither should a
/// program: show it to a person who can ask the merchant.
class KORVO_EXPORT QRCodeRepair {
  public:
    /// The complete payload.
    const std::string& payload() const noexcept;
    /// The changes, in the order of their offsets. They do not overlap. A moved element is deleted at one
    /// place and inserted at another.
    const std::vector<QRCodeEdit>& edits() const noexcept;
    /// What to check before anybody pays: sentences with the identifier, the amount and the fee as they read
    /// before and after. Empty if the written checksum vouches for the repair.
    const std::string& caution() const noexcept;

    /// Private to the library, which makes these objects.
    struct Facts;
    /// Private to the library.
    explicit QRCodeRepair(std::shared_ptr<const Facts> facts) noexcept;

  private:
    std::shared_ptr<const Facts> facts_;
};

/// The formats of a payload.
enum class QRCodeFormat : unsigned char { twoDigit, oneCharacter };

/// All that is known about a payload, accepted or refused.
class KORVO_EXPORT QRCodeExplanation {
  public:
    /// The payload, byte for byte.
    const std::string& payload() const noexcept;
    /// The same as UTF-8: bytes that are not UTF-8 are written as \\xHH. If there are any, backslashes are
    /// doubled; otherwise it is the payload. Made anew on every call.
    [[nodiscard]] std::string visible() const;
    /// The format; absent if the first two characters are missing or not UTF-8.
    std::optional<QRCodeFormat> format() const noexcept;
    /// Whether the parser accepts the payload.
    bool isAccepted() const noexcept;
    /// The codes that QRCodeParser::parseQRData gives; empty for an accepted payload.
    const std::vector<std::string>& errorCodes() const noexcept;
    /// The elements in the order of the payload, also those that the record does not keep. If the payload
    /// cannot be split, those before the fault.
    const std::vector<QRCodeElement>& elements() const noexcept;
    /// The violated rules about elements that are missing.
    const std::vector<QRCodeViolation>& missing() const noexcept;
    /// Why the payload cannot be split; null if it can.
    const QRCodeFault* fault() const noexcept;
    /// The checksum; null without four characters of UTF-8 at the end and something before them. A text that
    /// is not in the two-digit format has one only if it cannot be split and contains 6304.
    const QRCodeChecksum* checksum() const noexcept;
    /// What probably happened, the likeliest first: sentences for a person. Empty for an accepted payload,
    /// never empty for a refused one, unless describeQRData made the explanation.
    const std::vector<std::string>& causes() const noexcept;
    /// The repairs that the written checksum vouches for, the likeliest first: it is right for the text as it
    /// stands, or for the repaired text. None changes how an identifier, an amount or a fee reads.
    const std::vector<QRCodeRepair>& repairs() const noexcept;
    /// All other repairs, the likeliest first, each with a caution.
    const std::vector<QRCodeRepair>& unverified() const noexcept;
    /// The bytes of the payload before the character at an offset, for a program that marks a place in the
    /// text: of an element, of the fault, of a change. Beyond the last character, all bytes; beyond the first
    /// byte that is not UTF-8, those before it. Reads the payload up to the place on every call.
    std::size_t byteOffset(std::size_t offset) const noexcept;
    /// Everything above as one JSON object (RFC 8259) on one line, without a line feed. In `payload` and in
    /// elements, bytes that are not UTF-8 become U+FFFD; `visible` is a member if there are any. Absent
    /// members are missing, except `format` and `caution`, which are null. Made anew on every
    /// call.
    [[nodiscard]] std::string utf8JSON() const;

    /// Private to the library, which makes these objects.
    struct Facts;
    /// Private to the library.
    explicit QRCodeExplanation(std::shared_ptr<const Facts> facts) noexcept;

  private:
    std::shared_ptr<const Facts> facts_;
};

}  // namespace korvo

#endif
