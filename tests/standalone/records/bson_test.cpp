#include <gtest/gtest.h>
#include <sys/mman.h>

#include <cstring>
#include <stdexcept>

#include "outputs.h"
#include "sample_records.h"

namespace records_test {
namespace {

using namespace qmservice;

/// The field behind a dotted path; throws, which fails the test, when there is none.
bson_iter_t fieldAt(const Bson& document, const std::string& path) {
    bson_iter_t start;
    bson_iter_t found;
    if (bson_iter_init(&start, document.get()) && bson_iter_find_descendant(&start, path.c_str(), &found)) {
        return found;
    }
    throw std::runtime_error("The document has no field at " + path + ".");
}

std::string textAt(const Bson& document, const char* path) {
    const auto field = fieldAt(document, path);
    std::uint32_t length = 0;
    const char* text = bson_iter_utf8(&field, &length);
    return text == nullptr ? "not a text" : std::string(text, length);
}

bson_type_t typeAt(const Bson& document, const char* path) {
    const auto field = fieldAt(document, path);
    return bson_iter_type(&field);
}

double numberAt(const Bson& document, const char* path) {
    const auto field = fieldAt(document, path);
    EXPECT_EQ(bson_iter_type(&field), BSON_TYPE_DOUBLE) << path;
    return bson_iter_double(&field);
}

std::int32_t integerAt(const Bson& document, const char* path) {
    const auto field = fieldAt(document, path);
    EXPECT_EQ(bson_iter_type(&field), BSON_TYPE_INT32) << path;
    return bson_iter_int32(&field);
}

TEST(BsonDocument, HoldsTheValuesOfTheFields) {
    CInstrument instrument;
    instrument.code = "cu2601";
    instrument.openFee = 0.00015;
    instrument.feeType = -2;
    const Bson document = bsonOf(instrument);
    EXPECT_EQ(textAt(document, "code"), "cu2601");
    EXPECT_EQ(textAt(document, "name"), "");
    EXPECT_EQ(numberAt(document, "openFee"), 0.00015);
    EXPECT_EQ(integerAt(document, "feeType"), -2);
}

TEST(BsonDocument, HoldsRecordsInsideAsDocumentsAndEmptyPointersAsNull) {
    const Bson document = bsonOf(wholeFee());
    EXPECT_EQ(textAt(document, "hgtRateLimit._type"), "CCustomHGTExchangeRateLimit");
    EXPECT_EQ(numberAt(document, "hgtRateLimit.rate14"), 1.5);
    EXPECT_EQ(integerAt(document, "marginDetails.2.hedgeFlag"), 7);
    EXPECT_EQ(typeAt(document, "marginDetails"), BSON_TYPE_ARRAY);
    EXPECT_EQ(typeAt(document, "marginDetails.1"), BSON_TYPE_NULL);
    EXPECT_EQ(integerAt(document, "hgtRateLimit.groupCategories.0.category"), 0);
}

TEST(BsonDocument, HoldsMapsAsDocumentsByKey) {
    const Bson document = bsonOf(wholeFee());
    EXPECT_EQ(numberAt(document, "stkOptionFeeRate.items.C12.fee1"), 0);
    EXPECT_EQ(typeAt(document, "hgtRateLimit.customCategories"), BSON_TYPE_DOCUMENT);
    EXPECT_EQ(textAt(document, "hgtRateLimit.customCategories.30001.1"), "SZ000001");
}

TEST(BsonDocument, KeepsATextWithAZeroByte) {
    CAccountInfo account;
    account.accountId = std::string("a\0b", 3);
    EXPECT_EQ(textAt(bsonOf(account), "accountId"), account.accountId);
}

TEST(BsonDocument, HoldsATextThatIsNotUtf8AsItsBytes) {
    for (const std::string text : {"\xd5\xc5", "a\xc0\x80", "\xed\xa0\x80", "\xe9\x93"}) {
        CAccountInfo account;
        account.accountName = text;
        const Bson document = bsonOf(account);
        const auto field = fieldAt(document, "accountName");
        ASSERT_EQ(bson_iter_type(&field), BSON_TYPE_BINARY);
        std::uint32_t length = 0;
        const std::uint8_t* bytes = nullptr;
        bson_iter_binary(&field, nullptr, &length, &bytes);
        EXPECT_EQ(std::string(bytes, bytes + length), text);
    }
}

TEST(BsonDocument, EscapesKeysThatNoFieldNameCanHold) {
    CStockOptionFeeRate rate;
    rate.items[std::string("a\0", 2)] = nullptr;
    rate.items["\xc8"] = nullptr;
    rate.items["\\x00"] = nullptr;
    const Bson document = bsonOf(rate);
    EXPECT_EQ(typeAt(document, "items.a\\x00"), BSON_TYPE_NULL);
    EXPECT_EQ(typeAt(document, "items.\\xc8"), BSON_TYPE_NULL);
    EXPECT_EQ(typeAt(document, "items.\\\\x00"), BSON_TYPE_NULL);
    EXPECT_TRUE(bson_validate(document.get(), BSON_VALIDATE_UTF8, nullptr));
}

/// A document a few bytes short of BSON's limit, in memory that is reserved but never touched.
class FullDocument {
public:
    FullDocument() : buffer(reserve()), room(kLength), document(open()) {}
    FullDocument(const FullDocument&) = delete;
    FullDocument& operator=(const FullDocument&) = delete;
    ~FullDocument() {
        bson_destroy(document);
        munmap(buffer, kLength);
    }

    [[nodiscard]] bson_t* get() const { return document; }
    static constexpr std::size_t kLength = 2147483647 - 3;

private:
    static std::uint8_t* reserve() {
        void* memory =
            mmap(nullptr, kLength, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS | MAP_NORESERVE, -1, 0);
        if (memory == MAP_FAILED) {
            throw std::bad_alloc();
        }
        return static_cast<std::uint8_t*>(memory);
    }
    bson_t* open() {
        std::memcpy(buffer, &kLength, sizeof(std::int32_t));
        return bson_new_from_buffer(&buffer, &room, keep, nullptr);
    }
    static void* keep(void* memory, std::size_t, void*) { return memory; }

    std::uint8_t* buffer;
    std::size_t room;
    bson_t* document;
};

template <class Record>
void expectNoRoomFor(const Record& record) {
    const FullDocument full;
    ASSERT_NE(full.get(), nullptr);
    EXPECT_THROW(record.toBsonWithBson(full.get()), std::length_error);
    EXPECT_THROW(record.appendElementsWithNoTypeIdWithBson(full.get()), std::length_error);
    EXPECT_EQ(full.get()->len, FullDocument::kLength);
}

TEST(BsonDocument, ThatIsFullIsALengthError) {
    CAccountInfo notUtf8;
    notUtf8.accountId = "\xff";
    expectNoRoomFor(CAccountInfo());                // an integer
    expectNoRoomFor(notUtf8);                       // bytes
    expectNoRoomFor(CStkExchangeRateLimit());       // a double
    expectNoRoomFor(CInstrument());                 // a text
    expectNoRoomFor(CInstrumentFee());              // an empty pointer
    expectNoRoomFor(wholeFee());                    // a record
    expectNoRoomFor(CCustomFutureInstrumentFee());  // a list
}

TEST(BsonDocument, ThatIsFullNamesTheFieldThatDidNotFit) {
    const FullDocument full;
    try {
        CStkExchangeRateLimit().appendElementsWithNoTypeIdWithBson(full.get());
        FAIL() << "nothing was thrown";
    } catch (const std::length_error& error) {
        EXPECT_STREQ(error.what(),
                     "The field \"rate1\" does not fit into its BSON document, which holds at most 2147483647 bytes; "
                     "write fewer records into one document.");
    }
}

}  // namespace
}  // namespace records_test
