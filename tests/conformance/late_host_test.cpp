#include <dlfcn.h>
#include <gtest/gtest.h>

// A program that knows nothing of the library loads a plug-in that is its host.

namespace {

TEST(LateHostTest, PlugInThatIsAHostKeepsItsPromises) {
    void* const plugIn = dlopen(LATE_HOST, RTLD_NOW | RTLD_LOCAL);
    ASSERT_NE(plugIn, nullptr) << dlerror();
    const auto keepsItsPromises = reinterpret_cast<bool (*)()>(dlsym(plugIn, "keepsItsPromises"));
    ASSERT_NE(keepsItsPromises, nullptr) << dlerror();
    EXPECT_TRUE(keepsItsPromises());
}

}  // namespace
