#include "curves/Curves.h"

#include "Measurements.h"
#include "Networks.h"
#include "curves/NetworkCurve.h"
#include "supplicant/Supplicant.h"

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>

namespace bench {
namespace {

namespace fs = std::filesystem;

// What stands beside a picture.
struct Legend {
    const char* name; // of the files
    const char* xAxis;
    const char* yAxis;
    double unit; // of the y axis
    const char* title;
    const char* expectation; // what it should be
};

// In the order of measureCurves().
constexpr Legend LEGENDS[] = {
    {"load", "networks", "time in s", 1, "Load", "Straight: each network costs its commands."},
    {"refresh", "networks", "time in ms", 1e-3, "Status refresh",
     "As slow as its commands: the list, in parts of 4 KiB, and the scan."},
    {"lookup", "networks", "time in µs", 1e-6, "Lookup by SSID",
     "Straight, below 20 ns a network: the list is searched from its head."},
    {"document", "networks", "time in ms", 1e-3, "Call for the XML document",
     "Two children, and a straight part for enciphering and writing."},
    {"save", "networks", "time in ms", 1e-3, "Save of one field",
     "As slow as its commands: the supplicant writes its whole file, reads it again, and derives "
     "the key of each passphrase anew."},
    {"scan", "lines of the scan", "time in ms", 1e-3, "Reading a scan",
     "Straight up to 255 lines, which are the most that are kept, and then flat."},
    {"calls", "threads", "million calls a second", 1e6, "Calls of `getBssid0` by several threads",
     "Flat: one lock lets one call in at a time."},
    {"call-time", "threads", "time in µs", 1e-6, "Time of a call of `getBssid0`",
     "Straight: a thread waits for one call of each other thread."},
    {"notice", "other processes", "time in s", 1, "Until the others notice a save",
     "Noticed within the 6 s of two cycles; then all load at the same time, each its own copy."},
};

std::vector<Curve> measureAll(const test::Supplicant& supplicant) {
    std::vector<Curve> curves = measureNetworkCurves(supplicant);
    supplicant.reload(networks());
    curves.push_back(measureScanCurve());
    const ThreadCurves threads = measureThreadCurves();
    curves.push_back(threads.calls);
    curves.push_back(threads.time);
    curves.push_back(measureNoticeCurve(supplicant));
    return curves;
}

// A block of lines with x, the median, the least and the most.
void write(std::ostream& file, const Series& series, double unit) {
    file << '"' << series.label << "\"\n";
    for (const Point& point : series.points) {
        const auto [least, most] = std::minmax_element(point.values.begin(), point.values.end());
        file << point.x << '\t' << median(point.values) / unit << '\t' << *least / unit << '\t'
             << *most / unit << '\n';
    }
    file << "\n\n";
}

// The ideal is the last block.
void writeData(const Curve& curve, const Legend& legend) {
    std::ofstream file(fs::path(CURVES_FOLDER) / (std::string(legend.name) + ".tsv"));
    for (const Series& series : curve.series)
        write(file, series, legend.unit);
    write(file, curve.ideal, legend.unit);
}

void writeListEntry(std::ostream& list, const Curve& curve, const Legend& legend) {
    list << legend.name << '\t' << legend.xAxis << '\t' << legend.yAxis << '\t'
         << curve.series.size() << '\t' << legend.title << '\t' << legend.expectation << ' '
         << curve.finding << '\n';
}

} // namespace

Rows measureCurves(const test::Supplicant& supplicant) {
    setenv("PLATWIFI_PROFILE", "modern", 1); // of this process and of those that it starts
    const std::vector<Curve> curves = measureAll(supplicant);
    fs::create_directories(CURVES_FOLDER);
    std::ofstream list(fs::path(CURVES_FOLDER) / "list.tsv");
    Rows figures;
    for (std::size_t i = 0; i < curves.size(); ++i) {
        writeData(curves[i], LEGENDS[i]);
        writeListEntry(list, curves[i], LEGENDS[i]);
        figures.insert(figures.end(), curves[i].figures.begin(), curves[i].figures.end());
    }
    return figures;
}

} // namespace bench
