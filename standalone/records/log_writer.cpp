#include "standalone/records/log_writer.h"

#include <string>

#include "standalone/text/escape.h"
#include "standalone/text/numbers.h"

namespace qmservice::records {

void LogWriter::raw(std::string_view text) { out.write(text.data(), static_cast<std::streamsize>(text.size())); }

void LogWriter::separate(bool& first) {
    if (!first) {
        raw(", ");
    }
    first = false;
}

void LogWriter::value(double number) { raw(standalone::shortestText(number)); }

void LogWriter::value(std::int32_t number) { raw(std::to_string(number)); }

void LogWriter::value(std::string_view text) { raw('"' + standalone::escaped(text) + '"'); }

void LogWriter::writeRecord(const IData* record) {
    if (record == nullptr) {
        return raw("null");
    }
    record->toLogStream(out);
}

}  // namespace qmservice::records
