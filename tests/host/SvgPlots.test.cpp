#include "host/print/SvgPlots.h"

#include <gtest/gtest.h>

#include <climits>

#include "tests/host/ReadXml.h"

namespace Tests {
namespace {

using namespace OmbreliaHost;

int PlaceOf(const XmlElement& element, const std::string& attribute) {
  return std::stoi(element[attribute]);
}

TEST(SvgPlots, AValueWithinItsBoundsIsADotOnTheBand) {
  const XmlElement plot = ReadXml(PlotOfValue("Duration", "ms", 812, PlotBounds{700, 1000}));
  EXPECT_EQ(plot["role"], "img");
  EXPECT_EQ(plot["aria-label"], "Duration 812 ms, within the bounds 700 to 1,000 ms");
  EXPECT_TRUE(ElementsOf(plot, "path").size() == 1) << "the axis alone";
  const XmlElement band = ElementsOf(plot, "rect").at(0);
  const XmlElement dot = ElementsOf(plot, "circle").at(0);
  EXPECT_EQ(dot["class"], "dot");
  EXPECT_EQ(PlaceOf(band, "x"), 7);
  EXPECT_EQ(PlaceOf(band, "width"), 146);
  // 112 of 300 milliseconds from the band's start.
  EXPECT_EQ(PlaceOf(dot, "cx"), 7 + 55);
}

TEST(SvgPlots, AValueOutsideIsACrossBesideTheBand) {
  const XmlElement above = ReadXml(PlotOfValue("Duration", "ms", 1300, PlotBounds{700, 1000}));
  EXPECT_EQ(above["aria-label"], "Duration 1,300 ms, above the bounds 700 to 1,000 ms");
  EXPECT_TRUE(ElementsOf(above, "circle").empty());
  EXPECT_EQ(ElementsOf(above, "path").at(1)["class"], "cross");
  EXPECT_EQ(PlaceOf(ElementsOf(above, "rect").at(0), "width"), 73);
  const XmlElement below = ReadXml(PlotOfValue("Duration", "ms", -123, PlotBounds{700, 1000}));
  EXPECT_EQ(below["aria-label"], "Duration -123 ms, below the bounds 700 to 1,000 ms");
}

TEST(SvgPlots, BothEndsBelongToTheBounds) {
  for (const long value : {700, 1000}) {
    EXPECT_FALSE(
        ElementsOf(ReadXml(PlotOfValue("d", "", value, PlotBounds{700, 1000})), "circle").empty());
  }
  for (const long value : {699, 1001}) {
    EXPECT_TRUE(
        ElementsOf(ReadXml(PlotOfValue("d", "", value, PlotBounds{700, 1000})), "circle").empty());
  }
}

TEST(SvgPlots, AValueWithoutBoundsIsADotAlone) {
  const XmlElement plot = ReadXml(PlotOfValue("Expansion", "ms", 23, std::nullopt));
  EXPECT_EQ(plot["aria-label"], "Expansion 23 ms");
  EXPECT_TRUE(ElementsOf(plot, "rect").empty());
  EXPECT_EQ(ElementsOf(plot, "circle").size(), 1u);
}

TEST(SvgPlots, TheGreatestNumbersStayInThePicture) {
  const XmlElement plot =
      ReadXml(PlotOfValue("d", "ms", LONG_MIN, PlotBounds{LONG_MAX - 1, LONG_MAX}));
  const XmlElement band = ElementsOf(plot, "rect").at(0);
  EXPECT_LE(PlaceOf(band, "x") + PlaceOf(band, "width"), 160);
}

TEST(SvgPlots, ASeriesTellsItsExtentAndItsBadPoints) {
  const XmlElement plot = ReadXml(PlotOfSeries(
      "Duration", "ms", {{800, true}, {1200, false}, {900, true}}, PlotBounds{700, 1000}));
  EXPECT_EQ(plot["aria-label"],
            "Duration: 3 values from 800 to 1,200 ms, the last one 900 ms, bounds 700 to 1,000 ms, "
            "1 bad");
  EXPECT_EQ(ElementsOf(plot, "path").at(0)["d"], "M5 48L160 5L315 37");
  EXPECT_EQ(ElementsOf(plot, "path").at(1)["class"], "cross");
  EXPECT_EQ(ElementsOf(plot, "circle").size(), 2u);
}

TEST(SvgPlots, ALongSeriesShowsItsEnd) {
  std::vector<SeriesPoint> points(1000, {1, true});
  points.back().value = 7;
  const std::string plot = PlotOfSeries("d", "ms", points, std::nullopt);
  EXPECT_EQ(ReadXml(plot)["aria-label"], "d: 400 values from 1 to 7 ms, the last one 7 ms");
  EXPECT_LT(plot.size(), 8000u);
  EXPECT_EQ(PlotOfSeries("d", "ms", {}, std::nullopt), "");
}

TEST(SvgPlots, OnlyNothingAndAllHaveTheirOwnHeat) {
  EXPECT_EQ(HeatClass(0), "heat0");
  EXPECT_EQ(HeatClass(0.001), "heat1");
  EXPECT_EQ(HeatClass(0.5), "heat5");
  EXPECT_EQ(HeatClass(0.999), "heat9");
  EXPECT_EQ(HeatClass(1), "heat10");
}

TEST(SvgPlots, NumbersAreGroupedByThousands) {
  EXPECT_EQ(NumberWithCommas(0), "0");
  EXPECT_EQ(NumberWithCommas(999), "999");
  EXPECT_EQ(NumberWithCommas(-1000), "-1,000");
  EXPECT_EQ(NumberWithCommas(1234567), "1,234,567");
}

}  // namespace
}  // namespace Tests
