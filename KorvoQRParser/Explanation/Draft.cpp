#include <KorvoQRParser/Explanation/Draft.h>
#include <KorvoQRParser/Explanation/ExplanationFacts.h>

#include <memory>

namespace korvo {

namespace {

constexpr auto noOrigin = static_cast<std::uint32_t>(-1);

// A change in bytes of the original.
struct Change {
    std::size_t begin;
    std::size_t end;
    std::string to;
};

// The same change, of whole characters.
Change widened(Change change, const Characters& original) {
    std::size_t first = original.charactersBefore(change.begin);
    if (original.byteOf(first) > change.begin) {
        --first;
    }
    const std::size_t begin = original.byteOf(first);
    const std::size_t end = original.byteOf(original.charactersBefore(change.end));
    const std::string_view text = original.text();
    change.to.insert(0, text.substr(begin, change.begin - begin));
    change.to += text.substr(change.end, end - change.end);
    change.begin = begin;
    change.end = end;
    return change;
}

}  // namespace

Draft::Draft(std::string_view original) : text_(original) {
    origins_.reserve(original.size());
    for (std::size_t i = 0; i < original.size(); ++i) {
        origins_.push_back(static_cast<std::uint32_t>(i));
    }
}

void Draft::append(const Draft& other, std::size_t begin, std::size_t end) {
    text_.append(other.text_, begin, end - begin);
    const auto first = other.origins_.begin();
    origins_.insert(origins_.end(), first + static_cast<std::ptrdiff_t>(begin),
                    first + static_cast<std::ptrdiff_t>(end));
}

void Draft::insert(std::string_view text) {
    text_ += text;
    origins_.insert(origins_.end(), text.size(), noOrigin);
}

std::vector<QRCodeEdit> Draft::editsOf(const Characters& original) const {
    std::vector<Change> changes;
    std::size_t place = 0;
    for (std::size_t i = 0; i < text_.size() || place < original.text().size();) {
        if (i < text_.size() && origins_[i] == place) {
            ++i;
            ++place;
            continue;
        }
        Change change{place, place, ""};
        while (i < text_.size() && origins_[i] == noOrigin) {
            change.to += text_[i++];
        }
        place = change.end = i < text_.size() ? origins_[i] : original.text().size();
        if (!changes.empty() && widened(changes.back(), original).end > widened(change, original).begin) {
            // Both are inside one character.
            Change& last = changes.back();
            last.to += original.text().substr(last.end, change.begin - last.end);
            last.to += change.to;
            last.end = change.end;
        } else {
            changes.push_back(std::move(change));
        }
    }
    std::vector<QRCodeEdit> edits;
    for (const Change& raw : changes) {
        const Change change = widened(raw, original);
        const std::string_view from = original.text().substr(change.begin, change.end - change.begin);
        edits.emplace_back(std::make_shared<QRCodeEdit::Facts>(
            QRCodeEdit::Facts{original.charactersBefore(change.begin), std::string(from), change.to}));
    }
    return edits;
}

}  // namespace korvo
