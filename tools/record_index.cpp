#include "tools/record_index.h"

#include <algorithm>
#include <cstring>
#include <utility>

namespace velorand {

std::uint64_t RecordIndex::Hash(std::string_view key) {
    // FNV-1a, mixed at the end so that the low bits, which pick the slot, depend on all.
    std::uint64_t hash = 14695981039346656037ull;
    for (char c : key)
        hash = (hash ^ static_cast<unsigned char>(c)) * 1099511628211ull;
    hash ^= hash >> 29;
    return hash | 1;
}

bool RecordIndex::Holds(const Slot& slot, std::string_view key) const {
    if (slot.length != key.size())
        return false;
    if (key.size() <= kInline)
        return std::memcmp(slot.key, key.data(), key.size()) == 0;
    std::uint32_t index;
    std::memcpy(&index, slot.key, sizeof index);
    return longKeys_[index] == key;
}

std::size_t RecordIndex::Probe(std::string_view key, std::uint64_t hash) const {
    std::size_t mask = slots_.size() - 1;
    for (std::size_t i = hash & mask;; i = (i + 1) & mask) {
        const Slot& slot = slots_[i];
        if (slot.hash == 0 || (slot.hash == hash && Holds(slot, key)))
            return i;
    }
}

SchematicNode* RecordIndex::Find(std::string_view key) const {
    if (slots_.empty())
        return nullptr;
    return slots_[Probe(key, Hash(key))].record;
}

void RecordIndex::Prefetch(std::uint64_t hash) const {
    if (!slots_.empty())
        __builtin_prefetch(&slots_[hash & (slots_.size() - 1)]);
}

SchematicNode*& RecordIndex::Place(std::string_view key, std::uint64_t hash) {
    // At most three quarters full, so that probes stay short.
    if (4 * (used_ + 1) > 3 * slots_.size())
        Grow();
    Slot& slot = slots_[Probe(key, hash)];
    if (slot.hash == 0) {
        slot.hash = hash;
        slot.length = static_cast<std::uint32_t>(key.size());
        if (key.size() <= kInline) {
            std::memcpy(slot.key, key.data(), key.size());
        } else {
            std::uint32_t index = static_cast<std::uint32_t>(longKeys_.size());
            longKeys_.emplace_back(key);
            std::memcpy(slot.key, &index, sizeof index);
        }
        ++used_;
    }
    return slot.record;
}

void RecordIndex::Grow() {
    std::vector<Slot> old =
        std::exchange(slots_, std::vector<Slot>(std::max<std::size_t>(64, 2 * slots_.size())));
    std::size_t mask = slots_.size() - 1;
    for (const Slot& slot : old) {
        if (slot.hash == 0)
            continue;
        std::size_t i = slot.hash & mask;
        while (slots_[i].hash != 0)
            i = (i + 1) & mask;
        slots_[i] = slot;
    }
}

}  // namespace velorand
