#ifndef KORVOQR_PAYLOADINPUT_H
#define KORVOQR_PAYLOADINPUT_H

#include <functional>
#include <string>
#include <string_view>

namespace korvoqr {

/// Reads a file descriptor to its end, or until an interruption. Calls `handle` with the bytes of each read,
/// which are valid until that call returns; if it returns false, reading ends. Returns 0, or the errno of a
/// failed read.
[[nodiscard]] int readChunks(int fileDescriptor, const std::function<bool(std::string_view)>& handle);

/// Whether the name of an input file means standard input: it is empty or "-".
bool isStandardInput(const std::string& name) noexcept;

/// A file that is open for reading, or standard input.
class InputFile {
  public:
    explicit InputFile(const std::string& name);
    InputFile(const InputFile&) = delete;
    InputFile& operator=(const InputFile&) = delete;
    ~InputFile();

    /// The descriptor; negative if the file cannot be opened, with the reason in errno.
    int descriptor() const noexcept { return descriptor_; }

  private:
    bool isOwned_;
    int descriptor_;
};

}  // namespace korvoqr

#endif
