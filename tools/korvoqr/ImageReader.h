#ifndef KORVOQR_IMAGEREADER_H
#define KORVOQR_IMAGEREADER_H

#include <string>
#include <vector>

namespace korvoqr {

/// What a picture holds.
struct ImageContent {
    std::vector<std::string> payloads;  ///< the texts of its QR codes, as UTF-8
    std::string problem;                ///< why there are none, for a person; empty otherwise
};

/// Reads the QR codes of a PNG or JPEG file, a scan or a photo, dark on light or light on dark. A picture
/// that is made to harm ends with a problem, within half a minute. For a process with one thread.
[[nodiscard]] ImageContent readQRCodes(const std::string& file);

}  // namespace korvoqr

#endif
