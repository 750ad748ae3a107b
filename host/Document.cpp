#include "host/Document.h"

#include "host/ToolpathFiles.h"
#include <tessaron/exchange/Archives.h>
#include <tessaron/gcode/GcodeWriter.h>
#include <tessaron/util/Keys.h>

#include <boost/make_shared.hpp>

#include <algorithm>
#include <utility>

namespace host
{

namespace
{

constexpr double defaultRapidRate = 10000;

} // namespace

void Document::openPart(const std::string& path)
{
    m_part = std::make_shared<const Part>(loadPart(path));
    setToolpath({});
}

void Document::openToolpath(const std::string& path)
{
    const auto records = boost::make_shared<exchange::ToolpathRecords>();
    exchange::readArchiveFile(path, *records);
    setToolpath(records);
}

void Document::saveToolpath(const std::string& path) const
{
    if (isArchiveName(path))
    {
        exchange::writeArchiveFile(path, *m_records);
        return;
    }
    exchange::GcodeSettings settings;
    settings.title = m_part->name();
    settings.tool = std::max(0, m_part->input.parameters.intOr(util::keys::toolNumber, 0));
    exchange::writeGcodeFile(path, *m_records, settings);
}

void Document::take(const JobOutcome& outcome)
{
    setToolpath(outcome.toolpath);
    m_findings = outcome.findings;
    m_seconds = outcome.seconds;
}

bool Document::changeParameters(const std::function<bool(util::Parameterized& parameters)>& change)
{
    // The windows that show the part must not see it change under them.
    const auto part = std::make_shared<Part>(*m_part);
    if (!change(part->input.parameters))
        return false;
    m_part = part;
    m_outdated = m_records != nullptr;
    return true;
}

void Document::setToolpath(boost::shared_ptr<const exchange::ToolpathRecords> records)
{
    m_records = std::move(records);
    m_findings.clear();
    m_seconds = 0;
    m_outdated = false;
    m_model.reset();
    if (m_records)
        m_model = std::make_shared<const ToolpathModel>(*m_records,
                                                        m_part->number(util::keys::xyRapidFeedRate, defaultRapidRate));
}

} // namespace host
