// The style sheet of all pages and the scripts of some, from the files beside this one.
#ifndef OMBRELIA_HOST_PRINT_PAGEASSETS_H
#define OMBRELIA_HOST_PRINT_PAGEASSETS_H

namespace OmbreliaHost {

extern const char* const PAGE_STYLE;           // HtmlPage.css
extern const char* const RESULTS_PAGE_SCRIPT;  // HtmlPrinter.js

}  // namespace OmbreliaHost

#endif
