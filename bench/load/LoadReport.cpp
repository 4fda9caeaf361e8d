#include "load/LoadReport.h"

#include "load/LoadOptions.h"
#include "load/TextFormat.h"

#include <algorithm>

namespace orbelan::load {

namespace {

const std::string kNone = "—";

std::string throughput(const std::optional<ClientFigures>& figures)
{
    return figures ? grouped(static_cast<std::uint64_t>(figures->requestsPerSecond + 0.5)) : kNone;
}

std::string p99(const std::optional<ClientFigures>& figures)
{
    return figures ? fixed(figures->p99Milliseconds, 3) + " ms" : kNone;
}

std::string ratio(const RowResult& row)
{
    if (!row.control || !row.attacked || row.control->requestsPerSecond <= 0.0) {
        return kNone;
    }
    return fixed(row.attacked->requestsPerSecond / row.control->requestsPerSecond, 2);
}

std::string memory(const std::optional<long>& kilobytes)
{
    return kilobytes ? megabytes(*kilobytes) : kNone;
}

// Text that keeps the table whole: no line break, no bare column bar.
std::string cellText(const std::string& text)
{
    std::string cell;
    for (const char c : text) {
        cell += c == '\n' ? std::string(" / ") : c == '|' ? std::string("\\|") : std::string(1, c);
    }
    return cell;
}

// The row's number and name: "3 never-read".
std::string title(const RowResult& row)
{
    const auto at = std::ranges::find(LoadOptions::kRows, row.name.substr(0, row.name.find(' ')));
    return std::to_string(at - LoadOptions::kRows.begin() + 1) + " " + row.name;
}

} // namespace

void LoadReport::print(std::ostream& out, const std::vector<RowResult>& rows)
{
    out << "| row | control req/s | control p99 | attacked req/s | attacked p99 | ratio | RSS before | RSS during "
           "| RSS after | observation |\n"
           "|---|---:|---:|---:|---:|---:|---:|---:|---:|---|\n";
    for (const RowResult& row : rows) {
        out << line(row) << "\n";
    }
}

std::string LoadReport::line(const RowResult& row)
{
    std::string text = "| " + title(row);
    for (const std::string& cell :
         {throughput(row.control), p99(row.control), throughput(row.attacked), p99(row.attacked), ratio(row),
          memory(row.rssBefore), memory(row.rssDuring), memory(row.rssAfter), row.observation}) {
        text += " | " + cellText(cell);
    }
    return text + " |";
}

} // namespace orbelan::load
