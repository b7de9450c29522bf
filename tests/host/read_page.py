"""Says whether a page has the same elements for an HTML parser as for an XML parser: read_page.py PAGE."""

import sys
import xml.etree.ElementTree
from html.parser import HTMLParser


class Elements(HTMLParser):
    """The names and attributes of all elements, in their order; elements that are not closed in turn."""

    VOID = {"meta", "link", "br", "wbr", "input"}

    def __init__(self):
        super().__init__()
        self.found = []
        self.open = []
        self.faults = []

    def handle_starttag(self, tag, attrs):
        self.found.append((tag, dict(attrs)))
        if tag not in self.VOID:
            self.open.append(tag)

    def handle_startendtag(self, tag, attrs):
        self.found.append((tag, dict(attrs)))

    def handle_endtag(self, tag):
        if not self.open or self.open.pop() != tag:
            self.faults.append(f"</{tag}> in line {self.getpos()[0]} closes another element")

    def handle_comment(self, data):
        self.faults.append("a comment")


with open(sys.argv[1], encoding="utf-8", newline="") as file:
    text = file.read()
html = Elements()
html.feed(text)
html.close()
# HTML's parser makes the names of attributes small, and XML's does not.
as_xml = [(element.tag, {name.lower(): value for name, value in element.attrib.items()})
          for element in xml.etree.ElementTree.fromstring(text).iter()]
for fault in html.faults + [f"{tag} is not closed" for tag in html.open]:
    print(fault)
for one, other in zip(html.found, as_xml):
    if one != other:
        print(f"{one} for HTML, {other} for XML")
        break
if html.found == as_xml and not html.faults and not html.open:
    print(f"the same {len(as_xml)} elements")
else:
    sys.exit(1)
