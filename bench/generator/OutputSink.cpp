#include "OutputSink.h"

namespace kavrin::gen {
namespace {
// Large enough that a 200 MB layout needs only a few dozen write calls.
constexpr std::size_t kBufferSize = 8u << 20;
} // namespace

OutputSink::OutputSink(std::FILE* file) : file_(file), buffer_(kBufferSize) {}

void OutputSink::drain() {
    if (file_ != nullptr && !failed_ && used_ > 0) {
        failed_ = std::fwrite(buffer_.data(), 1, used_, file_) != used_;
    }
    drained_ += used_;
    used_ = 0;
}

void OutputSink::writeThrough(std::string_view text) {
    if (file_ != nullptr && !failed_) {
        failed_ = std::fwrite(text.data(), 1, text.size(), file_) != text.size();
    }
    drained_ += text.size();
}

bool OutputSink::flush() {
    drain();
    if (file_ != nullptr && !failed_) {
        failed_ = std::fflush(file_) != 0;
    }
    return !failed_;
}

} // namespace kavrin::gen
