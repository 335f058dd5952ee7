#ifndef KORVOQR_REQUEST_H
#define KORVOQR_REQUEST_H

#include "FileKind.h"
#include "Origin.h"

#include <string_view>

namespace korvoqr {

/// A payload to answer. The texts are views that are valid until it is answered.
struct Request {
    std::string_view payload;
    Origin origin;
    const FileKind* kind = nullptr;  ///< of the file that the payload is a line of, if it holds no lines
    bool isTooLong = false;          ///< the line was not kept, so there is no payload
};

}  // namespace korvoqr

#endif
