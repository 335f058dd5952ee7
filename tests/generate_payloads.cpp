// Prints generated payloads, each ended by NUL: generate_payloads SEED COUNT. Two builds of the tool must
// answer all of them alike: compare the output of generate_payloads 1 1000000 | korvoqr parse -0 --format
// jsonl. Half of the payloads have texts from every break class, with conjuncts, emoji, flags and reserved
// code points.

#include "GeneratedPayloads.h"

#include <cstdio>
#include <cstdlib>
#include <random>

namespace korvo::test {
namespace {

class RandomChoices {
  public:
    explicit RandomChoices(std::uint32_t seed) : random_(seed) {}

    std::string payload() {
        isASCII_ = below(5) < 2;
        return generatedPayload(*this);
    }

    unsigned below(unsigned limit) { return static_cast<unsigned>(random_()) % limit; }
    bool atEnd() { return below(3) != 0; }

    std::string text(std::size_t length) {
        std::string text = "A";
        while (characterCount(text) < length) {
            text +=
                isASCII_ || below(3) == 0 ? std::string(1, "Shop 12, Main Road?*ame"[below(23)]) : joined();
        }
        return text;
    }

  private:
    const std::string& of(BreakClass c) {
        const auto& members = classes_.at(static_cast<std::size_t>(c));
        return members[below(static_cast<unsigned>(members.size()))];
    }

    std::string joined() {
        using B = BreakClass;
        static const std::vector<std::vector<B>> sequences{
            {B::pictograph, B::joiner, B::pictograph},  // many of them reserved
            {B::regionalIndicator, B::regionalIndicator},
            {B::leadingJamo, B::vowelJamo, B::trailingJamo},
            {B::consonant, B::virama, B::consonant},
            {B::consonant, B::mark, B::virama, B::joiner, B::consonant}};
        const unsigned choice = below(8);
        std::string text;
        for (const B one :
             choice < 5 ? sequences[choice] : std::vector{static_cast<B>(below(breakClassCount))}) {
            text += of(one);
        }
        return text;
    }

    std::mt19937 random_;
    TextsByBreakClass classes_;
    bool isASCII_ = false;
};

}  // namespace
}  // namespace korvo::test

int main(int argc, char** argv) {
    if (argc != 3) {
        std::fputs("usage: generate_payloads SEED COUNT\n", stderr);
        return 2;
    }
    korvo::test::RandomChoices choices(static_cast<std::uint32_t>(std::strtoul(argv[1], nullptr, 10)));
    for (unsigned long left = std::strtoul(argv[2], nullptr, 10); left > 0; --left) {
        const std::string payload = choices.payload();
        std::fwrite(payload.c_str(), 1, payload.size() + 1, stdout);
    }
}
