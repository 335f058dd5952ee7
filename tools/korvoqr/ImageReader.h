#ifndef KORVOQR_IMAGEREADER_H
#define KORVOQR_IMAGEREADER_H

#include "Origin.h"

#include <string>
#include <vector>

namespace korvoqr {

/// A QR code of a picture: its payload, or the reason why the code that was found cannot be read.
struct ImageCode {
    std::string payload;  ///< the bytes of the code; UTF-8 if the code declares a character set
    std::string problem;  ///< for a person; empty if there is a payload
    PicturePlace place;
};

/// The QR codes of a picture, or the reason for none.
struct ImageContent {
    std::vector<ImageCode> codes;  ///< in reading order
    std::string problem;           ///< for a person; empty if there are codes
};

/// Reads the QR codes of a picture, a scan, a photo or a sheet, dark on light or light on dark; "-" is
/// standard input. A process of its own opens and reads it, with limits on time, memory, files and processes,
/// so that any file ends with codes or a problem, and in not much more than a minute even on a busy machine.
/// Call it only while the process has one thread.
[[nodiscard]] ImageContent readQRCodes(const std::string& file);

/// The pictures in a folder and its subfolders, sorted by name; hidden files are left out. If there are none,
/// or the name is not that of a folder, the name itself.
[[nodiscard]] std::vector<std::string> picturesIn(const std::string& name);

}  // namespace korvoqr

#endif
