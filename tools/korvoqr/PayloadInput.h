#ifndef KORVOQR_PAYLOADINPUT_H
#define KORVOQR_PAYLOADINPUT_H

#include <algorithm>
#include <functional>
#include <string>
#include <string_view>

namespace korvoqr {

/// Reads a file descriptor to its end. Calls `handle` with what each read has brought, whose bytes live until
/// that call returns; reading ends when it returns false. Returns 0, or the errno of a failed read.
[[nodiscard]] int readChunks(int fileDescriptor, const std::function<bool(std::string_view)>& handle);

/// Reads payloads from a file descriptor, each ended by `delimiter`; the last one may go without. Whatever
/// else stands in the input belongs to the payloads, a carriage return before a line feed too.
///
/// Calls `handle` with all whole payloads that one read has brought, before the next read waits for more;
/// reading ends when it returns false. Memory is bounded by the longest payload. Returns 0, or the errno of
/// a failed read.
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

    /// The descriptor; negative when the file cannot be opened, for the reason in errno.
    int descriptor() const noexcept { return descriptor_; }

  private:
    bool isOwned_;
    int descriptor_;
};

}  // namespace korvoqr

#endif
