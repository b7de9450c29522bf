// An XML text as expat reads it.
#ifndef OMBRELIA_TESTS_HOST_READXML_H
#define OMBRELIA_TESTS_HOST_READXML_H

#include <map>
#include <string>
#include <vector>

namespace Tests {

struct XmlElement {
  std::string name;
  std::map<std::string, std::string> attributes;
  std::string text;  // its own character data, in order
  std::vector<XmlElement> children;

  // Empty if there is no such attribute.
  std::string operator[](const std::string& attribute) const {
    const auto found = attributes.find(attribute);
    return found == attributes.end() ? std::string() : found->second;
  }
};

// The root element. A text that is not well-formed fails the test and reads as an element without name.
XmlElement ReadXml(const std::string& text);

// All elements of a name below an element, in the order of the text.
std::vector<XmlElement> ElementsOf(const XmlElement& element, const std::string& name);

}  // namespace Tests

#endif
