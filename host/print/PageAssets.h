// The style sheet of all pages, from the file beside this one.
#ifndef OMBRELIA_HOST_PRINT_PAGEASSETS_H
#define OMBRELIA_HOST_PRINT_PAGEASSETS_H

namespace OmbreliaHost {

extern const char* const PAGE_STYLE;  // HtmlPage.css

}  // namespace OmbreliaHost

#endif
