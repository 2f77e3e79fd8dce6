#include "core/files/keyed_table.h"

#include "core/errors.h"

namespace marvolin {

namespace {

// Type code and length of an empty key, type code and the shortest value.
constexpr std::size_t kSmallestPair = 8;

}  // namespace

void KeyedTable::Put(const std::string& key, TaggedValue value) {
    const auto [place, isNew] = places_.try_emplace(key, pairs_.size());
    if (isNew) {
        pairs_.emplace_back(key, std::move(value));
    } else {
        pairs_[place->second].second = std::move(value);
    }
}

const TaggedValue* KeyedTable::Find(const std::string& key) const {
    const auto place = places_.find(key);
    return place == places_.end() ? nullptr : &pairs_[place->second].second;
}

std::string IndexedKey(std::string_view name, int index) { return std::string(name) + " " + std::to_string(index); }

void WriteDictionary(const KeyedTable& table, RecordWriter& file) {
    file.PutTagged(TaggedValue(static_cast<std::int32_t>(table.Pairs().size())));
    for (const auto& [key, value] : table.Pairs()) {
        file.PutTagged(std::string_view(key));
        file.PutTagged(value);
    }
}

KeyedTable ReadDictionary(RecordReader& file) {
    const TaggedValue count = file.GetTagged();
    if (!std::holds_alternative<std::int32_t>(count)) throw RuntimeError(13, "Type mismatch");
    const std::int32_t pairs = file.CheckedCount(std::get<std::int32_t>(count), kSmallestPair);
    KeyedTable table;
    for (std::int32_t i = 0; i < pairs; ++i) {
        const TaggedValue key = file.GetTagged();
        if (!std::holds_alternative<std::string>(key)) throw RuntimeError(13, "Type mismatch");
        table.Put(std::get<std::string>(key), file.GetTagged());
    }
    return table;
}

}  // namespace marvolin
