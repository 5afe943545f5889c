#include "bench/Machine.h"

#include <fstream>
#include <iostream>

namespace bench {

std::string processorName() {
    std::ifstream file("/proc/cpuinfo");
    for (std::string line; std::getline(file, line);)
        if (line.starts_with("model name"))
            return line.substr(line.find(": ") + 2);
    return "unknown";
}

void printPeakMemory() {
    std::ifstream file("/proc/self/status");
    for (std::string word; file >> word;)
        if (word == "VmHWM:" && file >> word)
            std::cout << word << std::endl;
}

}  // namespace bench
