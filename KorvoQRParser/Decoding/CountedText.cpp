#include <KorvoQRParser/Decoding/CountedText.h>
#include <KorvoQRParser/Decoding/TextHelpers.h>

namespace korvo {

CountedText::CountedText(std::string_view text) : CountedText(text, korvo::characterCount(text)) {}

}  // namespace korvo
