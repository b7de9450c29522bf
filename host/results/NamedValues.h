// Values of an enumeration and their names, looked up both ways.
#ifndef OMBRELIA_HOST_RESULTS_NAMEDVALUES_H
#define OMBRELIA_HOST_RESULTS_NAMEDVALUES_H

#include <stdexcept>
#include <string>
#include <vector>

namespace OmbreliaHost {

template <typename VALUE>
struct NamedValue {
  VALUE value;
  const char* name;
};

// Every value must have a name.
template <typename VALUE>
std::string NameIn(const std::vector<NamedValue<VALUE>>& names, VALUE value) {
  for (const NamedValue<VALUE>& named : names) {
    if (named.value == value) return named.name;
  }
  throw std::logic_error("a value without a name");
}

// what: what the values are, for the words of std::invalid_argument.
template <typename VALUE>
VALUE ValueIn(const std::vector<NamedValue<VALUE>>& names, const std::string& name,
              const char* what) {
  for (const NamedValue<VALUE>& named : names) {
    if (named.name == name) return named.value;
  }
  throw std::invalid_argument("\"" + name + "\" is no " + what);
}

}  // namespace OmbreliaHost

#endif
