#include "runtime/OwnFiles.h"

#include <sys/stat.h>

namespace tallybrook {

void keepFilesToOneself() {
    umask(S_IRWXG | S_IRWXO);
}

}  // namespace tallybrook
