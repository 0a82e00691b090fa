#include "Common/MemoryLogSink.h"

namespace keo {

void MemoryLogSink::write(const LogRecord& record) noexcept {
    try {
        const std::lock_guard<std::mutex> lock(mutex_);
        records_.push_back(record);
    } catch (...) {
        // Out of memory: the record is dropped rather than letting the log throw.
    }
}

std::vector<LogRecord> MemoryLogSink::getRecords() const {
    const std::lock_guard<std::mutex> lock(mutex_);
    return records_;
}

std::size_t MemoryLogSink::size() const {
    const std::lock_guard<std::mutex> lock(mutex_);
    return records_.size();
}

void MemoryLogSink::clear() {
    const std::lock_guard<std::mutex> lock(mutex_);
    records_.clear();
}

} // namespace keo
