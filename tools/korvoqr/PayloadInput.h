#ifndef KORVOQR_PAYLOADINPUT_H
#define KORVOQR_PAYLOADINPUT_H

#include <algorithm>
#include <functional>
#include <string>
#include <string_view>

namespace korvoqr {

/// Reads a file descriptor to its end. Calls `handle` with the bytes of each read, which are valid until that
/// call returns; if it returns false, reading ends. Returns 0, or the errno of a failed read.
[[nodiscard]] int readChunks(int fileDescriptor, const std::function<bool(std::string_view)>& handle);

/// Reads payloads from a file descriptor. `delimiter` ends each of them; the last one may lack it. All other
/// bytes belong to the payloads, even a carriage return before a line feed.
///
/// After each read, calls `handle` with a block of all complete payloads, so that none waits for the next
/// read; if it returns false, reading ends. Memory is bounded by the longest payload. Returns 0, or the errno
/// of a failed read.
[[nodiscard]] int readBlocks(int fileDescriptor, char delimiter,
                             const std::function<bool(std::string)>& handle);

/// Calls `use` with each payload of a block.
template <class Use>
void forEachPayload(std::string_view block, char delimiter, Use use) {
    while (!block.empty()) {
        const std::string_view payload = block.substr(0, block.find(delimiter));
        use(payload);
        block.remove_prefix(std::min(block.size(), payload.size() + 1));
    }
}

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
