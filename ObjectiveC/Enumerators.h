#ifndef KORVOQRPARSER_OBJECTIVEC_ENUMERATORS_H
#define KORVOQRPARSER_OBJECTIVEC_ENUMERATORS_H

#include <cstddef>
#include <string_view>
#include <utility>

/// The public headers are plain Objective-C, so they write out enumerations that C++ makes from lists. These
/// functions compare both while compiling.
namespace korvo::objectivec {

/// The enumerator of a value, as clang spells it: "QRCodeErrorCodeCrcInvalidValue", or with its scope
/// "korvo::ErrorCode::crcInvalidValue". "(korvo::ErrorCode)47" or the like for a value that has none.
template <auto value>
constexpr std::string_view enumeratorOf() {
    constexpr std::string_view signature(static_cast<const char*>(__PRETTY_FUNCTION__));
    constexpr std::string_view opening = "[value = ";
    constexpr std::size_t start = signature.find(opening) + opening.size();
    return signature.substr(start, signature.size() - start - 1);
}

constexpr bool isEnumerator(std::string_view name) {
    return (name.front() >= 'a' && name.front() <= 'z') || (name.front() >= 'A' && name.front() <= 'Z');
}

/// Whether one is the other's name with a capital after the prefix, or both are no enumerators.
constexpr bool isSameEnumerator(std::string_view objectiveC, std::string_view prefix, std::string_view cpp) {
    if (!isEnumerator(objectiveC) || !isEnumerator(cpp)) {
        return !isEnumerator(objectiveC) && !isEnumerator(cpp);
    }
    cpp.remove_prefix(cpp.rfind(':') + 1);
    return objectiveC.starts_with(prefix) && objectiveC.size() == prefix.size() + cpp.size() &&
           objectiveC[prefix.size()] == cpp.front() - 'a' + 'A' &&
           objectiveC.substr(prefix.size() + 1) == cpp.substr(1);
}

/// Whether both enumerations have the same enumerators for the values from 0 to 255. 0 must have one: if it
/// has not, a compiler spells enumerators in another way.
template <typename ObjectiveC, typename Cpp, int... values>
constexpr bool haveSameEnumerators(std::string_view prefix, std::integer_sequence<int, values...> /*all*/) {
    return isEnumerator(enumeratorOf<Cpp{}>()) &&
           (isSameEnumerator(enumeratorOf<static_cast<ObjectiveC>(values)>(), prefix,
                             enumeratorOf<static_cast<Cpp>(values)>()) &&
            ...);
}

template <typename ObjectiveC, typename Cpp>
constexpr bool haveSameEnumerators(std::string_view prefix) {
    return haveSameEnumerators<ObjectiveC, Cpp>(prefix, std::make_integer_sequence<int, 256>());
}

}  // namespace korvo::objectivec

#endif
