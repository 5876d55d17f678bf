#include <bson/bson.h>
#include <gtest/gtest.h>

#include <stdexcept>

#include "standalone/records/bson_writer.h"

namespace {

TEST(JsonDocument, DocumentThatIsNotValidIsRefused) {
    qmservice::records::BsonDocument document;
    ASSERT_TRUE(bson_append_utf8(document.get(), "text", -1, "\xFF", 1));
    EXPECT_THROW(qmservice::records::jsonText(document), std::runtime_error);
}

}  // namespace
