#include "tools/record_index.h"

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

std::size_t RecordIndex::Probe(std::string_view key, std::uint64_t hash) const {
    std::size_t mask = slots_.size() - 1;
    for (std::size_t i = hash & mask;; i = (i + 1) & mask) {
        const Slot& slot = slots_[i];
        if (slot.hash == 0 || (slot.hash == hash && slot.key == key))
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
        slot.key.assign(key);
        ++used_;
    }
    return slot.record;
}

void RecordIndex::Grow() {
    std::vector<Slot> old =
        std::exchange(slots_, std::vector<Slot>(std::max<std::size_t>(64, 2 * slots_.size())));
    for (Slot& slot : old)
        if (slot.hash != 0)
            slots_[Probe(slot.key, slot.hash)] = std::move(slot);
}

}  // namespace velorand
