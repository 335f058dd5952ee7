#ifndef KORVOQRPARSER_C_TEXT_H
#define KORVOQRPARSER_C_TEXT_H

#include <KorvoQRParser/Model/QRCodeDataProperties.h>

#include <atomic>
#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

/// How the C face passes texts and lists.
namespace korvo::c {

/// A text for C, whose bytes must be followed by NUL: those of a string or of a literal. A default view is an
/// absent text. `size` may be null.
inline const char* pass(std::string_view text, std::size_t* size) noexcept {
    if (size != nullptr) {
        *size = text.size();
    }
    return text.data();
}

/// Whether a caller's pointer and size are a text.
inline bool isText(const char* bytes, std::size_t size) noexcept {
    return bytes != nullptr || size == 0;
}

/// The property with a caller's number, or null.
inline const QRCodeDataPropertyRow* propertyRowAt(int number) noexcept {
    const auto place = static_cast<std::size_t>(number);
    return place < qrCodeDataProperties.size() ? &qrCodeDataProperties[place] : nullptr;
}

/// The part at an index, or null.
template <class Part>
const Part* at(const std::vector<Part>& parts, std::size_t index) noexcept {
    return index < parts.size() ? &parts[index] : nullptr;
}

/// The same for a text, absent if there is none.
inline std::string_view textAt(const std::vector<std::string>& texts, std::size_t index) noexcept {
    return index < texts.size() ? std::string_view(texts[index]) : std::string_view();
}

/// A text that is made at the first call and kept. Any number of threads may call at once: each may make it,
/// the first one to finish wins, and the others drop theirs. So no thread waits, and nothing is locked.
class KeptText {
  public:
    KeptText() = default;
    KeptText(const KeptText&) = delete;
    KeptText& operator=(const KeptText&) = delete;
    ~KeptText() { const std::unique_ptr<const std::string> owned(text_.load()); }

    /// Absent if memory runs out; the next call tries again.
    template <class Make>
    std::string_view get(Make make) const noexcept {
        const std::string* kept = text_.load();
        if (kept == nullptr) {
            try {
                auto made = std::make_unique<const std::string>(make());
                if (text_.compare_exchange_strong(kept, made.get())) {
                    kept = made.release();
                }
            } catch (...) {
                return {};
            }
        }
        return *kept;
    }

  private:
    mutable std::atomic<const std::string*> text_{nullptr};
};

}  // namespace korvo::c

#endif
