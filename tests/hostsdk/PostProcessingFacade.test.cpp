#include "hostsdk/PostProcessingFacade.h"

#include <gtest/gtest.h>

namespace {

wxString Cell(const wxString& eventValue, const wxString& trialValue, bool showLevels) {
  return Ombrelia::PostProcessingFacade::GetFormattedTagsDataCell(eventValue, trialValue,
                                                                  showLevels);
}

TEST(PostProcessingFacade, TwoEmptyValuesGiveAnEmptyText) {
  EXPECT_EQ(Cell(wxT(""), wxT(""), false), wxString());
  EXPECT_EQ(Cell(wxT(""), wxT(""), true), wxString());
}

TEST(PostProcessingFacade, OneValueStandsAlone) {
  EXPECT_EQ(Cell(wxT("red"), wxT(""), false), wxString(wxT("red")));
  EXPECT_EQ(Cell(wxT(""), wxT("blue"), false), wxString(wxT("blue")));
}

TEST(PostProcessingFacade, OneValueShowsWhoSetIt) {
  EXPECT_EQ(Cell(wxT("red"), wxT(""), true), wxString(wxT("red (event)")));
  EXPECT_EQ(Cell(wxT(""), wxT("blue"), true), wxString(wxT("blue (trial)")));
}

TEST(PostProcessingFacade, TheEventsValueComesFirst) {
  EXPECT_EQ(Cell(wxT("red"), wxT("blue"), false), wxString(wxT("red|blue")));
  EXPECT_EQ(Cell(wxT("red"), wxT("blue"), true), wxString(wxT("red (event)|blue (trial)")));
}

TEST(PostProcessingFacade, KeepsEqualAndNonAsciiValues) {
  EXPECT_EQ(Cell(wxT("\u00e4"), wxT("\u00e4"), false), wxString(wxT("\u00e4|\u00e4")));
}

}  // namespace
