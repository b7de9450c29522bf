// What a verifier is handed for one data file.
#ifndef OMBRELIA_FRAMEWORK_VERIFICATIONNECESSITIES_H
#define OMBRELIA_FRAMEWORK_VERIFICATIONNECESSITIES_H

#include <boost/shared_ptr.hpp>
#include <vector>

class MUExperimentTextReaderMultiFile;

namespace Ombrelia {

class FakeJUnitPrinter;
struct StimAreaData;

struct VerificationNecessities {
  boost::shared_ptr<MUExperimentTextReaderMultiFile> reader;  // never null
  FakeJUnitPrinter* printer;                                  // not owned
  const std::vector<StimAreaData>* stimAreas;                 // not owned; lives through the call
};

}  // namespace Ombrelia

#endif
