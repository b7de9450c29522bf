#include "tests/host/ReadXml.h"

#include <expat.h>
#include <gtest/gtest.h>

#include <memory>

namespace Tests {

namespace {

// The elements that are open, the innermost last; the first one stands for the document.
using Open = std::vector<XmlElement>;

void OnStart(void* open, const XML_Char* name, const XML_Char** attributes) {
  XmlElement element;
  element.name = name;
  for (; *attributes != nullptr; attributes += 2) element.attributes[attributes[0]] = attributes[1];
  static_cast<Open*>(open)->push_back(element);
}

void OnEnd(void* open, const XML_Char*) {
  Open& elements = *static_cast<Open*>(open);
  const XmlElement closed = elements.back();
  elements.pop_back();
  elements.back().children.push_back(closed);
}

void OnText(void* open, const XML_Char* text, int length) {
  static_cast<Open*>(open)->back().text.append(text, static_cast<std::size_t>(length));
}

void Collect(const XmlElement& element, const std::string& name, std::vector<XmlElement>& found) {
  for (const XmlElement& child : element.children) {
    if (child.name == name) found.push_back(child);
    Collect(child, name, found);
  }
}

}  // namespace

XmlElement ReadXml(const std::string& text) {
  Open open(1);
  const std::unique_ptr<XML_ParserStruct, decltype(&XML_ParserFree)> parser(
      XML_ParserCreate(nullptr), &XML_ParserFree);
  XML_SetUserData(parser.get(), &open);
  XML_SetElementHandler(parser.get(), &OnStart, &OnEnd);
  XML_SetCharacterDataHandler(parser.get(), &OnText);
  if (XML_Parse(parser.get(), text.data(), static_cast<int>(text.size()), 1) != XML_STATUS_OK) {
    ADD_FAILURE() << XML_ErrorString(XML_GetErrorCode(parser.get())) << " in line "
                  << XML_GetCurrentLineNumber(parser.get()) << " of\n"
                  << text.substr(0, 2000);
    return XmlElement();
  }
  return open.front().children.front();
}

std::vector<XmlElement> ElementsOf(const XmlElement& element, const std::string& name) {
  std::vector<XmlElement> found;
  Collect(element, name, found);
  return found;
}

}  // namespace Tests
