// Writing an XML document, and nothing else: the same elements and attributes by several writers.

#include "Contest.h"
#include "Measurements.h"
#include "XmlWriters.h"
#include "settings/WifiHostSettings.h"
#include "supplicant/WifiUtil.h"

#include <benchmark/benchmark.h>
#include <stdexcept>

namespace bench {
namespace {

struct Entry {
    const XmlWriter& writer;
    const char* meaning; // of the platform's time over that of this one
};

const Entry OTHERS[] = {
    {STRING_WRITER,
     "What it costs to make every text valid in XML, over the least that is possible."},
    {TINYXML2_WRITER,
     "Above 1, this writer would be faster; the parts of the call, below, show by how much."},
    {PUGIXML_WRITER, "The same for a writer that builds a tree first."},
    {LIBXML2_WRITER, "The same for the writer that most systems have."},
};

XmlElement documentInMemory() {
    const XmlElement root = parse(libraryDocument());
    WifiHostSettings::unload();
    WifiUtil::unload();
    return root;
}

void expectSame(const XmlElement& root, const XmlWriter& writer) {
    if (!(parse(writer.write(root)) == root))
        throw std::runtime_error(std::string(writer.name) + " makes another document");
}

Contestant contestant(const XmlElement& root, const XmlWriter& writer) {
    expectSame(root, writer);
    return {[&root, &writer] { benchmark::DoNotOptimize(writer.write(root)); }};
}

} // namespace

Rows measureXml() {
    const XmlElement root = documentInMemory();
    std::vector<Contestant> contestants{contestant(root, PLATFORM_WRITER)};
    for (const Entry& other : OTHERS)
        contestants.push_back(contestant(root, other.writer));
    const Timings times = compete(contestants, {15, 0.05});
    const std::string what = "Writing the XML document of 32 networks (" +
                             inKibibytes(static_cast<double>(PLATFORM_WRITER.write(root).size())) +
                             ")";
    Rows rows;
    for (std::size_t i = 0; i < std::size(OTHERS); ++i)
        rows.push_back(timeRow(what + ", by the platform's writer", OTHERS[i].writer.name, times[0],
                               times[i + 1], OTHERS[i].meaning));
    return rows;
}

} // namespace bench
