#ifndef FEEDESK_SESSION_USUAL_FOLDER_H
#define FEEDESK_SESSION_USUAL_FOLDER_H

#include <string>

namespace feedesk {

/// The market folder where nobody names one: ./market; where there is none, the market that is installed with the
/// program; where that is missing too, ./market again, which an error then names.
std::string usualFolder();

}  // namespace feedesk

#endif  // FEEDESK_SESSION_USUAL_FOLDER_H
