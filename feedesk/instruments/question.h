#ifndef FEEDESK_INSTRUMENTS_QUESTION_H
#define FEEDESK_INSTRUMENTS_QUESTION_H

#include <string>

namespace feedesk {

/// An instrument as a fee center is asked for it.
struct Question {
    std::string market;
    std::string code;
};

}  // namespace feedesk

#endif  // FEEDESK_INSTRUMENTS_QUESTION_H
