#include "runtime/OwnFiles.h"

#include <csignal>

#include <sys/stat.h>

namespace tallybrook {

void keepFilesToOneself() {
    umask(S_IRWXG | S_IRWXO);
}

void outliveLargeFiles() {
    std::signal(SIGXFSZ, SIG_IGN);
}

void setUpFiles() {
    keepFilesToOneself();
    outliveLargeFiles();
}

}  // namespace tallybrook
