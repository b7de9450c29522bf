// How a data file finds its verifier.
#include <gtest/gtest.h>

#include "plugin/DataHookOutputTestingPluginImpl.h"
#include "plugin/Interface_SpecificIndividualTestVerifier.h"

namespace {

using Ombrelia::DataHookOutputTestingPlugin;
using Ombrelia::LookupKeyOfDatafile;

class Verifier : public Ombrelia::Interface_SpecificIndividualTestVerifier {
 public:
  void VerifyDatafile(const wxString&, const std::vector<Ombrelia::StimAreaData>&,
                      Ombrelia::FakeJUnitPrinter*) override {}
};

TEST(LookupKey, IsTheNamePartCutAtItsFirstBlankInCapitals) {
  EXPECT_EQ(
      LookupKeyOfDatafile(wxT("/some folder/2011-09-21_basic_audio_format_4.5.2_tests.om4 12.txt")),
      wxString(wxT("2011-09-21_BASIC_AUDIO_FORMAT_4.5.2_TESTS.OM4")));
  EXPECT_EQ(LookupKeyOfDatafile(wxT("x.om4 Robot Smith 3.txt")), wxString(wxT("X.OM4")));
}

TEST(LookupKey, NeedsNoBlank) {
  EXPECT_EQ(LookupKeyOfDatafile(wxT("a/x.om4.txt")), wxString(wxT("X.OM4")));
}

TEST(LookupKey, DropsTheLastExtensionOnly) {
  EXPECT_EQ(LookupKeyOfDatafile(wxT("a.b.c.d")), wxString(wxT("A.B.C")));
  // A data file without stimulus areas drops those of the experiment before it.
  EXPECT_EQ(LookupKeyOfDatafile(wxT("x.om4")), wxString(wxT("X")));
  EXPECT_EQ(LookupKeyOfDatafile(wxT("x.om4 1")), wxString(wxT("X")));
}

TEST(LookupKey, OfANameThatBeginsWithABlankIsEmpty) {
  EXPECT_EQ(LookupKeyOfDatafile(wxT("/a/ x.om4 1.txt")), wxString());
}

TEST(LookupKey, OfOddPathsIsSomeText) {
  EXPECT_EQ(LookupKeyOfDatafile(wxT("")), wxString());
  EXPECT_EQ(LookupKeyOfDatafile(wxT("/a/folder/")), wxString());
  EXPECT_EQ(LookupKeyOfDatafile(wxT("/a/.txt")), wxString(wxT(".TXT")));
}

TEST(LookupKey, IsCutAtABlankOnlyAndNotAtATab) {
  EXPECT_EQ(LookupKeyOfDatafile(wxT("x\ty.om4 1.txt")), wxString(wxT("X\tY.OM4")));
}

TEST(Registry, KeysAreCapitalsAndRecordsKeepTheName) {
  static Verifier verifier;
  DataHookOutputTestingPlugin::RegisterOneSingleVerifier(
      {wxT("Registry_Test_Mixed.om4"), &verifier});
  const auto& registry = DataHookOutputTestingPlugin::PrivateImpl::m_static_verifiers();
  const auto found = registry.find(wxT("REGISTRY_TEST_MIXED.OM4"));
  ASSERT_NE(found, registry.end());
  EXPECT_EQ(found->second.name, wxString(wxT("Registry_Test_Mixed.om4")));
  EXPECT_EQ(found->second.verifier, &verifier);
  EXPECT_EQ(registry.count(wxT("Registry_Test_Mixed.om4")), 0u);
}

TEST(Registry, OfTwoNamesThatDifferInCaseTheFirstStays) {
  static Verifier first;
  static Verifier second;
  DataHookOutputTestingPlugin::RegisterOneSingleVerifier({wxT("registry_test_TWICE.om4"), &first});
  const auto& registry = DataHookOutputTestingPlugin::PrivateImpl::m_static_verifiers();
  const std::size_t size = registry.size();
  DataHookOutputTestingPlugin::RegisterOneSingleVerifier({wxT("REGISTRY_test_twice.om4"), &second});
  EXPECT_EQ(registry.size(), size);
  EXPECT_EQ(registry.at(wxT("REGISTRY_TEST_TWICE.OM4")).verifier, &first);
}

TEST(Registry, HoldsTheVerifiersThatRegisteredThemselves) {
  const auto& registry = DataHookOutputTestingPlugin::PrivateImpl::m_static_verifiers();
  const auto found = registry.find(wxT("2012_3_9_TOLMEY_2668_MACRO_EXIT_EXPERIMENT.OM4"));
  ASSERT_NE(found, registry.end());
  EXPECT_EQ(found->second.name, wxString(wxT("2012_3_9_tolmey_2668_macro_exit_experiment.om4")));
}

}  // namespace
