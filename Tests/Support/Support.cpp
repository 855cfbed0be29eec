#include "Support/Printing.hpp"
#include "Support/Recorder.hpp"
