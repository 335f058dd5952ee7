#ifndef KORVOQR_PICTUREROWS_H
#define KORVOQR_PICTUREROWS_H

#include "Format.h"
#include "LibraryInternals.h"
#include "Origin.h"

#include <string>
#include <string_view>

namespace korvoqr {

/// Adds the members that an object has for a picture: "file" and, for a code in it, "code" and "position".
/// Adds nothing if the payload does not come from a picture.
void appendOrigin(korvo::JSONWriter& json, const Origin& origin);

/// The answer for a picture that cannot be read, or for a code that was found in it and cannot be read: an
/// object with the member "problem", with the final line feed. Empty in text: there a message says it.
[[nodiscard]] std::string problemRow(const Origin& origin, std::string_view problem, Format format);

}  // namespace korvoqr

#endif
