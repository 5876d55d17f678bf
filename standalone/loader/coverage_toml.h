#ifndef STANDALONE_LOADER_COVERAGE_TOML_H
#define STANDALONE_LOADER_COVERAGE_TOML_H

#include "standalone/loader/load.h"
#include "standalone/loader/toml_section.h"

namespace standalone::loader {

/// Reads what market.toml says of days: `as_of` and the table `coverage`.
void readDays(Load& load, TomlSection& root);

}  // namespace standalone::loader

#endif  // STANDALONE_LOADER_COVERAGE_TOML_H
