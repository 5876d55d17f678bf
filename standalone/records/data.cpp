#include "host/data.h"

#include <boost/core/demangle.hpp>
#include <typeinfo>

#include "standalone/records/bson_writer.h"
#include "standalone/records/log_writer.h"

namespace qmservice {
namespace {

std::string classNameOf(const IData& data) { return boost::core::demangle(typeid(data).name()); }

}  // namespace

IData::~IData() = default;

std::string IData::getStructDes() const { return classNameOf(*this) + "{}"; }

void IData::toLogStream(std::ostream& out) const { records::LogWriter(out).raw(classNameOf(*this) + "{}"); }

void IData::toStream(std::ostream& out) const {
    records::BsonDocument document;
    toBsonWithBson(document.get());
    records::LogWriter(out).raw(records::jsonText(document));
}

bool IData::isEqual(const IData& other) const { return typeid(*this) == typeid(other); }

std::ptrdiff_t IData::getOffset(const std::string& /*field*/) const { return -1; }

void IData::toBsonWithBson(_bson_t* document) const {
    records::BsonWriter(document).append("_type", std::string_view(classNameOf(*this)));
    appendElementsWithNoTypeIdWithBson(document);
}

void IData::appendElementsWithNoTypeIdWithBson(_bson_t* /*document*/) const {}

}  // namespace qmservice
