#ifndef KORVOQR_IMAGEREADER_H
#define KORVOQR_IMAGEREADER_H

#include <string>
#include <vector>

namespace korvoqr {

/// The QR codes of a picture, or the reason for none.
struct ImageContent {
    std::vector<std::string> payloads;  ///< the texts of the codes, as UTF-8
    std::string problem;                ///< for a person; empty if there are payloads
};

/// Reads the QR codes of a PNG or JPEG file, a scan or a photo, dark on light or light on dark. A malicious
/// picture ends with a problem, within half a minute. Call it only while the process has one thread.
[[nodiscard]] ImageContent readQRCodes(const std::string& file);

}  // namespace korvoqr

#endif
