#ifndef KORVOQR_PAYLOADINPUT_H
#define KORVOQR_PAYLOADINPUT_H

#include <cstddef>
#include <cstdint>
#include <functional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace korvoqr {

/// A problem with an input, for a person: the reason, and after a semicolon what to type.
class InputError : public std::runtime_error {
  public:
    using std::runtime_error::runtime_error;
};

/// Reads a file descriptor to its end, or until an interruption. Calls `handle` with the bytes of each read,
/// which are valid until that call returns; if it returns false, reading ends. Returns 0, or the errno of a
/// failed read.
[[nodiscard]] int readChunks(int fileDescriptor, const std::function<bool(std::string_view)>& handle);

/// Whether the name of an input file means standard input: it is empty or "-".
bool isStandardInput(const std::string& name) noexcept;

/// Reads a file of payloads in the same way. Throws InputError.
void readInput(const std::string& name, const std::function<bool(std::string_view)>& handle);

/// The size of all input files in bytes; 0 if one of them is a pipe or a terminal.
std::uint64_t sizeOfInputs(const std::vector<std::string>& names);

/// The first bytes of a regular file, at most so many; empty if it cannot be read.
std::string headOfFile(const std::string& name, std::size_t most);

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
