#include "feedesk/program.h"
#include "feedesk/terminal/interruption.h"

int main(int argc, char** argv) {
    feedesk::endCleanlyWhenInterrupted();
    return feedesk::run(argc, argv);
}
