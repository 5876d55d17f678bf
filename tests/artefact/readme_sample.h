#ifndef TESTS_ARTEFACT_README_SAMPLE_H
#define TESTS_ARTEFACT_README_SAMPLE_H

/// The README's program, with the arguments and the exit status of a program: a market folder may be named.
int readmeSample(int argc, char** argv);

#endif  // TESTS_ARTEFACT_README_SAMPLE_H
