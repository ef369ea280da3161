// The schematic records by key while a listing is read: every hierarchy line looks its
// name up, so the lookup must be cheap. Open addressing over one array whose slots hold
// the hash and the key, so that a lookup mostly touches one slot and nothing behind it.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "tools/schematic_node.h"

namespace velorand {

class RecordIndex {
  public:
    // The key's hash, for the calls below.
    static std::uint64_t Hash(std::string_view key);
    // Starts to bring the key's slot into the cache, so that a lookup a little later
    // doesn't wait for memory.
    void Prefetch(std::uint64_t hash) const;
    // The record filed under the key; null when there is none.
    SchematicNode* Find(std::string_view key) const;
    // The place of the key's record: the record itself when the key is filed, else a new
    // empty place that the caller fills. One hash of the key serves both.
    SchematicNode*& Place(std::string_view key, std::uint64_t hash);

  private:
    // One cache line holds two slots; a key of up to kInline bytes stands in its slot, so
    // that most lookups touch nothing else.
    static constexpr std::size_t kInline = 12;
    struct alignas(32) Slot {
        std::uint64_t hash = 0;  // 0: the slot is free
        SchematicNode* record = nullptr;
        std::uint32_t length = 0;
        char key[kInline];  // the key itself, or the index of a long one in longKeys_
    };

    bool Holds(const Slot& slot, std::string_view key) const;
    // The slot of the key, or the free slot where it belongs.
    std::size_t Probe(std::string_view key, std::uint64_t hash) const;
    void Grow();

    std::vector<Slot> slots_;
    std::vector<std::string> longKeys_;
    std::size_t used_ = 0;
};

}  // namespace velorand
