#ifndef HOST_DATA_H
#define HOST_DATA_H

#include <boost/shared_ptr.hpp>
#include <cstddef>
#include <cstdint>
#include <iosfwd>
#include <string>

#include "host/host_export.h"

struct _bson_t;  // NOLINT(bugprone-reserved-identifier): libbson's document, by the name that <bson/bson.h> gives it

namespace qmservice {

using uint64 = std::uint64_t;

/// Base of every record that crosses the boundary between a host and the fee center.
///
/// Threads: the const operations may run on any number of threads at once as long as nobody writes the record.
/// Ownership: records are held by boost::shared_ptr; nothing returned here points into the record.
/// A class that adds no fields of its own need only define copy() and getHashKey(); the other operations then describe
/// a record without fields.
class HOST_EXPORT IData {
public:
    IData() = default;
    virtual ~IData();

    /// A new record equal to this one, owned by the caller. Records and lists of records inside it are copied too, so
    /// that writing into the copy never shows in the original; the account and instrument of a fee stay shared.
    [[nodiscard]] virtual boost::shared_ptr<IData> copy() const = 0;

    /// A 64-bit key of the record, continued from `seed`; 0 starts afresh. Equal records give equal keys in one run. A
    /// record inside counts with its own key.
    [[nodiscard]] virtual uint64 getHashKey(uint64 seed) const = 0;

    /// The class and its fields in layout order, as "Class{field:type,...}".
    [[nodiscard]] virtual std::string getStructDes() const;

    /// Writes the record on one line for a log: "Class{field=value, ...}", no line end.
    virtual void toLogStream(std::ostream& out) const;

    /// Writes the record as one JSON object, class name included, no line end.
    virtual void toStream(std::ostream& out) const;

    /// True when `other` is of the same class and all its fields are equal; records behind pointers are compared by
    /// their contents. A NaN equals nothing.
    [[nodiscard]] virtual bool isEqual(const IData& other) const;

    /// Offset in bytes of the named field from the start of the record; -1 when the record has no such field.
    [[nodiscard]] virtual std::ptrdiff_t getOffset(const std::string& field) const;

    /// Appends the record to `document`: the class name under "_type", then every field under its own name. `document`
    /// is the caller's, initialised and not null. A text that is not UTF-8 is stored as binary. Throws
    /// std::length_error when the document would outgrow BSON's limit; it keeps the fields appended so far.
    virtual void toBsonWithBson(_bson_t* document) const;

    /// As toBsonWithBson, without "_type".
    virtual void appendElementsWithNoTypeIdWithBson(_bson_t* document) const;

protected:
    // Records are copied through their own class; the base alone is never copied or assigned from outside.
    IData(const IData&) = default;
    IData& operator=(const IData&) = default;
};

/// Declares the nine operations of IData for one record class, for its fields and nothing else. They are defined once
/// for all classes, from the list of each class's fields, in the records library.
template <class Record>
class HOST_EXPORT RecordOf : public IData {
public:
    /// A new Record, owned by the caller, with the same fields.
    [[nodiscard]] boost::shared_ptr<IData> copy() const override;
    /// The key of the Record's fields, continued from `seed`.
    [[nodiscard]] uint64 getHashKey(uint64 seed) const override;
    /// The Record's fields in layout order, as "Class{field:type,...}".
    [[nodiscard]] std::string getStructDes() const override;
    /// Writes "Class{field=value, ...}", no line end.
    void toLogStream(std::ostream& out) const override;
    /// Writes one JSON object, class name included, no line end.
    void toStream(std::ostream& out) const override;
    /// False where `other` is no Record. A NaN equals nothing.
    [[nodiscard]] bool isEqual(const IData& other) const override;
    /// In bytes from the start of the Record; -1 when it has no such field.
    [[nodiscard]] std::ptrdiff_t getOffset(const std::string& field) const override;
    /// Appends "_type" and the fields to `document`, as IData says.
    void toBsonWithBson(_bson_t* document) const override;
    /// Appends the fields alone to `document`, as IData says.
    void appendElementsWithNoTypeIdWithBson(_bson_t* document) const override;

protected:
    RecordOf() = default;
    RecordOf(const RecordOf&) = default;
    RecordOf& operator=(const RecordOf&) = default;
    ~RecordOf() override = default;
};

}  // namespace qmservice

#endif  // HOST_DATA_H
