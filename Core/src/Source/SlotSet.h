#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace keo::Source::detail {

/** @brief A set of attribute slots (small integers), one bit each. */
class SlotSet final {
public:
    /** @brief Adds @p slot. */
    void insert(std::uint32_t slot) {
        const std::size_t word = slot / 64;
        if (word >= words_.size()) {
            words_.resize(word + 1, 0);
        }
        words_[word] |= std::uint64_t{1} << (slot % 64);
    }
    /** @brief Adds every slot of @p other. */
    void insertAll(const SlotSet& other) {
        if (other.words_.size() > words_.size()) {
            words_.resize(other.words_.size(), 0);
        }
        for (std::size_t i = 0; i < other.words_.size(); ++i) {
            words_[i] |= other.words_[i];
        }
    }
    /** @brief Whether @p slot is in the set. */
    bool contains(std::uint32_t slot) const noexcept {
        const std::size_t word = slot / 64;
        return word < words_.size() && ((words_[word] >> (slot % 64)) & 1U) != 0;
    }
    /** @brief Whether the set is empty. */
    bool empty() const noexcept {
        for (const std::uint64_t w : words_) {
            if (w != 0) {
                return false;
            }
        }
        return true;
    }

private:
    std::vector<std::uint64_t> words_;
};

} // namespace keo::Source::detail
