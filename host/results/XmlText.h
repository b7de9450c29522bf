// Texts as XML 1.0 may hold them.
#ifndef OMBRELIA_HOST_RESULTS_XMLTEXT_H
#define OMBRELIA_HOST_RESULTS_XMLTEXT_H

#include <string>

namespace OmbreliaHost {

// For an attribute in double quotes, and for character data: markup escaped, so that a parser gives the text
// back. What XML cannot hold at all is written visibly: a control character as \x1B, a byte that is no UTF-8
// likewise, a noncharacter as \u{FFFE}.
std::string XmlAttribute(const std::string& text);
std::string XmlContent(const std::string& text);

// The same as sections of character data, which nothing but what XML cannot hold is changed in.
std::string XmlCharacterData(const std::string& text);

// Does the text hold something that XML cannot, however it is escaped?
bool HoldsWhatXmlCannot(const std::string& text);

}  // namespace OmbreliaHost

#endif
