#include <KorvoQRParser/Explanation/VisibleText.h>
#include <KorvoQRParser/Explanation/WalkedElements.h>

#include <utility>

namespace korvo {

namespace {

class Recorder final : public TLVVisitor {
  public:
    explicit Recorder(std::vector<WalkedElement>& elements) : elements_(elements) {}

    void visit(PayMerchantValidTLV01 tag, const TLVElement& element) override {
        add(element, std::string(rawValue(tag)), tagRow(tag).meaning, false);
    }
    void visit(PMValidTLV01AdditionalDataField subTag, const TLVElement& element) override {
        add(element, nameInsideAdditionalData(rawValue(subTag)), tagRow(subTag).meaning, true);
    }
    void visit(PayMerchantValidTLV00 tag, const TLVElement& element) override {
        add(element, std::string(rawValue(tag)), tagRow(tag).meaning, false);
    }

  private:
    // Tag and length field are equally long, and a known tag is ASCII.
    static std::size_t headOf(const TLVElement& element) { return 2 * element.tag.size(); }

    void add(const TLVElement& element, std::string name, std::string_view meaning, bool isInside) {
        if (isInside && !elements_.back().isInsideAdditionalData) {
            insideOffset_ = elements_.back().offset + headOf(elements_.back().element);
        }
        std::size_t& offset = isInside ? insideOffset_ : rootOffset_;
        elements_.push_back({offset, element, std::move(name), meaning, isInside, {}});
        offset += headOf(element) + element.value.characterCount();
    }

    std::vector<WalkedElement>& elements_;
    std::size_t rootOffset_ = 0;
    std::size_t insideOffset_ = 0;
};

std::string_view meaningOf(std::string_view name) {
    if (name.substr(0, 3) == "62/") {
        const auto subTag = pmValidTLV01AdditionalDataField(name.substr(3));
        return subTag ? tagRow(*subTag).meaning : std::string_view();
    }
    if (const auto tag = payMerchantValidTLV01(name)) {
        return tagRow(*tag).meaning;
    }
    const auto tag = payMerchantValidTLV00InEitherCase(name);
    return tag ? tagRow(*tag).meaning : std::string_view();
}

}  // namespace

PayloadWalk::PayloadWalk(std::string_view payload) {
    Recorder recorder(elements);
    fault = walkPayload(payload, recorder);
}

std::string nameInsideAdditionalData(std::string_view subTag) {
    return joined({additionalDataTag, "/", subTag});
}

std::string namedTag(std::string_view name, std::string_view meaning) {
    std::string text = "tag ";
    text += name;
    if (!meaning.empty()) {
        text += " (";
        // Names such as NPCI keep their letters.
        const bool isWord = meaning.size() > 1 && meaning[1] >= 'a' && meaning[1] <= 'z';
        const bool isName = meaning.substr(0, 10) == "MasterCard";
        text += isWord && !isName ? asciiLowerCase(meaning[0]) : meaning[0];
        text += meaning.substr(1);
        text += ')';
    }
    return text;
}

std::string namedTag(std::string_view name) {
    return namedTag(name, meaningOf(name));
}

}  // namespace korvo
