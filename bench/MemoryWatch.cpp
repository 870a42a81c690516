#include "MemoryWatch.h"

#include <fstream>
#include <stdexcept>
#include <string>

namespace tallybrook::bench {

namespace {

/// Kibibytes of this process, by a name of the kernel's.
long memory(const std::string& name) {
    std::ifstream status("/proc/self/status");
    for (std::string line; std::getline(status, line);) {
        if (line.starts_with(name + ":"))
            return std::stol(line.substr(name.size() + 1));
    }
    throw std::runtime_error("the kernel does not tell " + name);
}

}  // namespace

MemoryWatch::MemoryWatch() : idle_(memory("VmRSS")) {
    std::ofstream("/proc/self/clear_refs") << "5";  // lets the peak begin anew
}

long MemoryWatch::peak() const {
    return memory("VmHWM") - idle_;
}

}  // namespace tallybrook::bench
