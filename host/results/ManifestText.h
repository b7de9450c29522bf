// The verifiers' table as the build found it.
#ifndef OMBRELIA_HOST_RESULTS_MANIFESTTEXT_H
#define OMBRELIA_HOST_RESULTS_MANIFESTTEXT_H

namespace OmbreliaHost {

extern const char* const MANIFEST_TEXT;  // JSON in UTF-8

}  // namespace OmbreliaHost

#endif
