#ifndef KORVOQR_PAYLOADINPUT_H
#define KORVOQR_PAYLOADINPUT_H

#include <functional>
#include <string_view>

namespace korvoqr {

/// Reads payloads from a file descriptor, each ended by `delimiter`; the last one may go without. Whatever
/// else stands in the input belongs to the payloads, a carriage return before a line feed too.
///
/// Calls `handle` with each payload, whose bytes live until that call returns; reading ends when it returns
/// false. Calls `beforeWaiting` whenever all that has arrived has been handled. Memory is bounded by the
/// longest payload. Returns 0, or the errno of a failed read.
int forEachPayload(int fileDescriptor, char delimiter, const std::function<bool(std::string_view)>& handle,
                   const std::function<void()>& beforeWaiting);

}  // namespace korvoqr

#endif
