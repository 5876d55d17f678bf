#ifndef TESTS_HISTORIES_WORLD_CHANGES_H
#define TESTS_HISTORIES_WORLD_CHANGES_H

#include <functional>
#include <string>

#include "histories/bytes.h"
#include "histories/world.h"

namespace histories {

/// A change of what the host knows.
struct WorldChange {
    std::function<void(World&)> apply;
    std::function<std::string()> describe;
};

WorldChange chooseWorldChange(Bytes& bytes, const World& world);

}  // namespace histories

#endif  // TESTS_HISTORIES_WORLD_CHANGES_H
