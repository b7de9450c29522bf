// Small plots for a page, as inline SVG. Each has its words for those who do not see it, and shows by its shapes
// what it shows by its colours. Numbers are whole: the same numbers give the same bytes.
#ifndef OMBRELIA_HOST_PRINT_SVGPLOTS_H
#define OMBRELIA_HOST_PRINT_SVGPLOTS_H

#include <optional>
#include <string>
#include <vector>

namespace OmbreliaHost {

// Both belong to the bounds.
struct PlotBounds {
  long min = 0;
  long max = 0;
};

// "1,000" without regard to the locale.
std::string NumberWithCommas(long number);

// One value on a scale: a band for its bounds, a dot for a value within them or without any, a cross for one
// outside. name and unit are texts, as in "Duration", "ms".
std::string PlotOfValue(const std::string& name, const std::string& unit, long value,
                        const std::optional<PlotBounds>& bounds);

struct SeriesPoint {
  long value = 0;
  bool good = true;  // a bad one is a cross
};

// Values one after the other from left to right, a band for the bounds. Of more than 400 points the last 400. No
// point gives no plot.
std::string PlotOfSeries(const std::string& name, const std::string& unit,
                         const std::vector<SeriesPoint>& points,
                         const std::optional<PlotBounds>& bounds);

// The class of the style sheet for a table's cell that shows a share from 0 to 1: "heat0" for none of it, "heat1" to
// "heat9" between, "heat10" for all. The cell must hold the share in words or digits, too.
std::string HeatClass(double share);

}  // namespace OmbreliaHost

#endif
