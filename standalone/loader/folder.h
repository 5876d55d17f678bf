#ifndef STANDALONE_LOADER_FOLDER_H
#define STANDALONE_LOADER_FOLDER_H

#include "standalone/loader/load.h"

namespace standalone::loader {

/// Looks which files the folder has, and reports those that the format does not know and those that are missing. False
/// when the folder itself cannot be read.
bool scanFolder(Load& load);

}  // namespace standalone::loader

#endif  // STANDALONE_LOADER_FOLDER_H
