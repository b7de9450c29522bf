// A lost process in words.
#ifndef OMBRELIA_HOST_RUN_LOSSTEXT_H
#define OMBRELIA_HOST_RUN_LOSSTEXT_H

#include <string>

#include "host/results/RunResults.h"

namespace OmbreliaHost {

// As in "was ended by signal 11 (Segmentation fault)" and "ended with status 3", after a subject.
std::string WordsOf(const Loss& loss);

}  // namespace OmbreliaHost

#endif
