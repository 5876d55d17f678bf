#ifndef COST_REFUSED_H
#define COST_REFUSED_H

#include <stdexcept>

namespace cost {

/// A question that has no answer, said in one sentence for a person, without line end. Whoever knows the file and line
/// of the question puts them in front.
class Refused : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// A trade that cannot have been made, or a question that makes no sense of it, whatever the rates and terms are.
class WrongTrade : public Refused {
public:
    using Refused::Refused;
};

}  // namespace cost

#endif  // COST_REFUSED_H
