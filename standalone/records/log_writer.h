#ifndef STANDALONE_RECORDS_LOG_WRITER_H
#define STANDALONE_RECORDS_LOG_WRITER_H

#include <boost/shared_ptr.hpp>
#include <cstdint>
#include <map>
#include <ostream>
#include <string_view>
#include <vector>

#include "host/data.h"

namespace qmservice::records {

/// Writes a record's fields on one line: name=value, lists as [a, b], maps as {key: value}, texts in double quotes with
/// their control characters escaped, an empty pointer as null. The stream's locale and format flags have no effect.
class LogWriter {
public:
    explicit LogWriter(std::ostream& target) : out(target) {}

    /// Unquoted text, as it is.
    void raw(std::string_view text);

    /// What comes between two entries: a comma, but nothing before the first entry of a list.
    void separate(bool& first);

    void value(double number);
    void value(std::int32_t number);
    void value(std::string_view text);

    template <class Record>
    void value(const boost::shared_ptr<Record>& record) {
        writeRecord(record.get());
    }

    template <class Value>
    void value(const std::vector<Value>& values) {
        raw("[");
        bool first = true;
        for (const auto& entry : values) {
            separate(first);
            value(entry);
        }
        raw("]");
    }

    template <class Key, class Value>
    void value(const std::map<Key, Value>& values) {
        raw("{");
        bool first = true;
        for (const auto& [key, entry] : values) {
            separate(first);
            value(key);
            raw(": ");
            value(entry);
        }
        raw("}");
    }

private:
    void writeRecord(const IData* record);

    std::ostream& out;
};

}  // namespace qmservice::records

#endif  // STANDALONE_RECORDS_LOG_WRITER_H
