// The sample as the README prints it: a program. What it includes itself comes first and is all that it needs.
#include "readme_sample_includes.inc"

#include "readme_sample.h"

// NOLINTNEXTLINE(cppcoreguidelines-macro-usage): the program's own main is the test's function
#define main readmeSample
#include "readme_sample_body.inc"
