#include "feedesk/program.h"

int main(int argc, char** argv) { return feedesk::run(argc, argv); }
