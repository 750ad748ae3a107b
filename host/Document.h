#ifndef HOST_DOCUMENT_H
#define HOST_DOCUMENT_H

#include "host/JobRunner.h"
#include "host/Part.h"
#include "host/ToolpathModel.h"

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace host
{

/// What is open: a part, its toolpath, and what the engine has found about it.
class Document
{
public:
    const std::shared_ptr<const Part>& part() const { return m_part; }
    const std::shared_ptr<const ToolpathModel>& toolpath() const { return m_model; }
    /// What the job that made the toolpath found.
    const std::vector<exchange::JobFinding>& findings() const { return m_findings; }
    /// How long the toolpath took to compute; 0 when that is not known.
    double seconds() const { return m_seconds; }
    /// Whether the toolpath belongs to parameters that have changed since.
    bool outdated() const { return m_outdated; }

    /// Opens a part, without a toolpath.
    /// \throws PartError; the document is as it was
    void openPart(const std::string& path);
    /// Opens a toolpath of the part.
    /// \throws exchange::ArchiveFileError; the document is as it was
    void openToolpath(const std::string& path);
    /// Saves the toolpath: as an archive into a file that ends with .xml, else as G-code in millimetres, for the part's
    /// tool.
    /// \throws exchange::ArchiveFileError, exchange::GcodeError naming the file, which is as it was
    void saveToolpath(const std::string& path) const;
    /// Takes the toolpath and the findings of a job that has finished.
    void take(const JobOutcome& outcome);
    /// Changes the part's parameters.
    /// \param change returns whether it has
    bool changeParameters(const std::function<bool(util::Parameterized& parameters)>& change);

private:
    void setToolpath(boost::shared_ptr<const exchange::ToolpathRecords> records);

    std::shared_ptr<const Part> m_part;
    boost::shared_ptr<const exchange::ToolpathRecords> m_records;
    std::shared_ptr<const ToolpathModel> m_model;
    std::vector<exchange::JobFinding> m_findings;
    double m_seconds = 0;
    bool m_outdated = false;
};

} // namespace host

#endif
