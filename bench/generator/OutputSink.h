#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <string_view>
#include <vector>

namespace kavrin::gen {

/// Byte sink behind a large buffer. Without a file it only counts, which lets the generator measure
/// how big a layout would be without writing it.
class OutputSink {
public:
    explicit OutputSink(std::FILE* file = nullptr);
    OutputSink(const OutputSink&) = delete;
    OutputSink& operator=(const OutputSink&) = delete;

    void put(char c) {
        if (used_ == buffer_.size()) {
            drain();
        }
        buffer_[used_++] = c;
    }

    void write(std::string_view text) {
        if (text.empty()) {
            return;
        }
        if (text.size() > buffer_.size() - used_) {
            drain();
            if (text.size() > buffer_.size()) {
                writeThrough(text);
                return;
            }
        }
        std::memcpy(buffer_.data() + used_, text.data(), text.size());
        used_ += text.size();
    }

    /// Room for at least n bytes at the returned position; commit() the bytes actually used.
    char* reserve(std::size_t n) {
        if (n > buffer_.size() - used_) {
            drain();
        }
        return buffer_.data() + used_;
    }
    void commit(std::size_t n) { used_ += n; }

    /// Hands everything buffered to the file. False once any write has failed.
    bool flush();
    std::uint64_t bytesWritten() const { return drained_ + used_; }
    bool failed() const { return failed_; }

private:
    void drain();
    void writeThrough(std::string_view text);

    std::FILE* file_;
    std::vector<char> buffer_;
    std::size_t used_ = 0;
    std::uint64_t drained_ = 0;
    bool failed_ = false;
};

} // namespace kavrin::gen
