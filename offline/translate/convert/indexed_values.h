// A list of small vectors in which equal ones stand once, and for each corner the place of its vector. Equal
// means the same bits, so that nothing of the file is lost; the order is that of first use.
#pragma once

#include <array>
#include <cstdint>
#include <cstring>
#include <unordered_map>
#include <vector>

namespace Translation {

template <std::size_t N>
class IndexedValues {
  public:
    using Value = std::array<float, N>;

    void addCorner(const Value& value) {
        Bits bits;
        std::memcpy(bits.data(), value.data(), sizeof bits);
        const auto [entry, isNew] = places_.try_emplace(bits, static_cast<std::uint32_t>(values_.size()));
        if (isNew) values_.push_back(value);
        corners_.push_back(entry->second);
    }

    const std::vector<Value>& values() const { return values_; }
    const std::vector<std::uint32_t>& corners() const { return corners_; }

  private:
    using Bits = std::array<std::uint32_t, N>;
    struct Hash {
        std::size_t operator()(const Bits& bits) const {
            std::uint64_t hash = 0;
            for (const std::uint32_t part : bits) {
                hash = (hash ^ part) * 0x9e3779b97f4a7c15u;
                hash ^= hash >> 29;
            }
            return static_cast<std::size_t>(hash);
        }
    };

    std::unordered_map<Bits, std::uint32_t, Hash> places_;
    std::vector<Value> values_;
    std::vector<std::uint32_t> corners_;
};

}  // namespace Translation
