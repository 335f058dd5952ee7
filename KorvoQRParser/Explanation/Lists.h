#ifndef KORVOQRPARSER_EXPLANATION_LISTS_H
#define KORVOQRPARSER_EXPLANATION_LISTS_H

#include <iterator>

// Searches through whole lists. The standard algorithms do the same, but repeat their loops four times to be
// fast. The explanation has dozens of such searches, and should be small.

namespace korvo {

/// The first part that passes the test, or the end.
template <class List, class Test>
auto findIf(List& list, Test test) {
    auto place = std::begin(list);
    while (place != std::end(list) && !test(*place)) {
        ++place;
    }
    return place;
}

template <class List, class Test>
bool anyOf(const List& list, Test test) {
    return findIf(list, test) != std::end(list);
}

template <class List, class Test>
bool allOf(const List& list, Test test) {
    return !anyOf(list, [&test](const auto& part) { return !test(part); });
}

template <class List, class Value>
bool contains(const List& list, const Value& value) {
    return anyOf(list, [&value](const auto& part) { return part == value; });
}

}  // namespace korvo

#endif
