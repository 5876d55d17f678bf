#ifndef FEEDESK_INSTRUMENTS_INSTRUMENT_ADVICE_H
#define FEEDESK_INSTRUMENTS_INSTRUMENT_ADVICE_H

#include <string>

#include "feedesk/instruments/instrument_text.h"

namespace feedesk {

/// What the text, which names none of the instruments, may be meant for: "; did you mean SH:600519?". Empty when
/// nothing comes near.
std::string instrumentAdvice(const std::string& text, const NamedInstruments& instruments);

}  // namespace feedesk

#endif  // FEEDESK_INSTRUMENTS_INSTRUMENT_ADVICE_H
