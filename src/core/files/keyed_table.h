#pragma once
/// \file
/// Key and value pairs in the order in which they were added.

#include <cstddef>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

#include "core/files/record_stream.h"
#include "core/files/tagged_value.h"

namespace marvolin {

/// A table of values by key that keeps the order of insertion.
class KeyedTable {
public:
    using Pair = std::pair<std::string, TaggedValue>;

    /// Adds a pair at the end. For an existing key replaces the value and keeps its place.
    void Put(const std::string& key, TaggedValue value);
    /// The value of a key; null when the table has no such key.
    const TaggedValue* Find(const std::string& key) const;
    const std::vector<Pair>& Pairs() const { return pairs_; }

private:
    std::vector<Pair> pairs_;
    std::unordered_map<std::string, std::size_t> places_;
};

/// Text of an indexed key: the name, a blank and the index, as in "JoyFactor 0".
std::string IndexedKey(std::string_view name, int index);

/// The number of pairs as a Long, then each key and value, all as tagged values.
void WriteDictionary(const KeyedTable& table, RecordWriter& file);
/// Reads what `WriteDictionary` writes. A key that is no text raises "Type mismatch" (13).
KeyedTable ReadDictionary(RecordReader& file);

}  // namespace marvolin
