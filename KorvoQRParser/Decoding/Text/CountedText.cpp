#include <KorvoQRParser/Decoding/Text/CountedText.h>
#include <KorvoQRParser/Decoding/Text/TextHelpers.h>

namespace korvo {

CountedText::CountedText(std::string_view text) : CountedText(text, korvo::characterCount(text)) {}

}  // namespace korvo
