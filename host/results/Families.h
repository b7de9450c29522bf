// Families of experiments, by what their names say.
#ifndef OMBRELIA_HOST_RESULTS_FAMILIES_H
#define OMBRELIA_HOST_RESULTS_FAMILIES_H

#include <string>
#include <vector>

namespace OmbreliaHost {

// All families in the order in which they are shown; the last one takes what no other does.
std::vector<std::string> Families();

// An experiment belongs to the first family that has a word with which one of the words of its name begins. A name
// is divided at everything but letters and digits, and before a capital that follows a small letter; case does not
// count. So a new experiment finds its family without an entry anywhere.
std::string FamilyOf(const std::string& experiment);

}  // namespace OmbreliaHost

#endif
