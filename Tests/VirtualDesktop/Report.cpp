#include "VirtualDesktop/Report.hpp"

#include <iomanip>
#include <iostream>

namespace vireline::desktop {

void report(const std::string& what, double value, const std::string& unit,
            const std::string& promise) {
    std::cout << std::left << std::setw(56) << what << std::right << std::setw(9) << std::fixed
              << std::setprecision(1) << value << ' ' << std::left << std::setw(9) << unit
              << promise << '\n'
              << std::flush;
}

}
