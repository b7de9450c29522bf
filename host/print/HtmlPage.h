// A page of its own: one file that needs no other and asks the network for nothing.
#ifndef OMBRELIA_HOST_PRINT_HTMLPAGE_H
#define OMBRELIA_HOST_PRINT_HTMLPAGE_H

#include <ostream>
#include <string>
#include <vector>

namespace OmbreliaHost {

// The frame: style sheet for light, dark, print and 360 pixels, landmarks, headings in order. "Text" below is UTF-8
// and escaped here; "markup" is made of HtmlText.h, HtmlTable.h and SvgPlots.h, and its headings begin with h3.
//
// Nothing in a page runs or is styled but what has the page's nonce, so that markup by mistake would be inert, too:
// no style or event-handler attributes in markup. The same content gives the same bytes.
//
// Classes of the style sheet (HtmlPage.css):
//   passed failed tolerated gone absent   colours of an outcome for what is below; "gone" is for lost, crashed ...
//   verdict                               one sentence that says it all
//   badge                                 an outcome's word
//   totals                                <dl> of <div><dt>what</dt><dd>number</dd></div>, side by side
//   facts                                 <dl> of <dt>, <dd>
//   tiles                                 <ul> of small boxes, with class "name" within
//   card, test                            a box, and a part of it
//   times                                 <dl> of <div><dt>, <dd>plot and number</div>
//   muted small number decides            for texts, for cells, for a table's row
//   unseen-text                           for screen readers alone
struct HtmlPage {
  struct Section {
    std::string id;       // as the page's own ids are: with a colon, as in "page:times"
    std::string heading;  // text
    std::string body;     // markup
  };

  std::string title;  // text; the heading, too
  std::string lead;   // markup, below the heading
  std::vector<Section> sections;
  std::string data;  // JSON for the script, the text of the element of id "page:data"; may be empty
  std::string
      script;  // JavaScript without "]]>"; may be empty. The page must be of use without it.

  void Print(std::ostream& out) const;
};

}  // namespace OmbreliaHost

#endif
