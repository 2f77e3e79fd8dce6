#include "persistence/switch_record_file.h"

#include "core/files/keyed_table.h"

namespace marvolin {

void PutIt(const clsSwitchRecord& switches, RecordWriter& file) {
    KeyedTable table;
    for (std::size_t i = 0; i < kElementNames.size(); ++i) {
        const bool on = switches.Get(static_cast<Element>(i));
        table.Put(std::string(kElementNames[i]), TaggedBoolean{ToBoolean(on)});
    }
    WriteDictionary(table, file);
}

void GetIt(clsSwitchRecord& switches, RecordReader& file) {
    const KeyedTable table = ReadDictionary(file);
    for (std::size_t i = 0; i < kElementNames.size(); ++i) {
        const TaggedValue* value = table.Find(std::string(kElementNames[i]));
        switches.Put(static_cast<Element>(i), value != nullptr && AsTruth(*value));
    }
}

}  // namespace marvolin
