#ifndef FEEDESK_CHECKING_SAME_CHARGE_H
#define FEEDESK_CHECKING_SAME_CHARGE_H

#include "cost/term.h"

namespace feedesk::checking {

/// Whether both terms say how one charge of one family becomes an amount, on some side that both are for.
bool chargesSame(const cost::Term& one, const cost::Term& other);

/// Whether the wider term names no account, instrument or product that the narrower one does not name as well: where
/// the narrower one is not, the wider one charges.
bool isInPlaceOf(const cost::Term& narrower, const cost::Term& wider);

}  // namespace feedesk::checking

#endif  // FEEDESK_CHECKING_SAME_CHARGE_H
