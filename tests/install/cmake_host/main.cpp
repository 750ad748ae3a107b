// A host in C++ without a display: a record through an archive, a job under a progress window of its own, and what lies
// beside the libraries.
#include <tessaron/engine/JobService.h>
#include <tessaron/engine/ProgressData.h>
#include <tessaron/engine/TemplateStore.h>
#include <tessaron/exchange/Archives.h>
#include <tessaron/exchange/Tessaron2dInput.h>
#include <tessaron/exchange/ToolpathRecords.h>
#include <tessaron/frame/EntryPoints.h>
#include <tessaron/machining/SmartLinkData.h>
#include <tessaron/progress/ProgressDialog.h>
#include <tessaron/util/Keys.h>

#include <cstdio>
#include <fstream>
#include <iterator>
#include <sstream>
#include <string>

namespace
{

int failures = 0;

void check(bool condition, const char* what)
{
    if (!condition)
    {
        std::fprintf(stderr, "FAILED: %s\n", what);
        ++failures;
    }
}

} // namespace

int main(int, char** arguments)
{
    const std::string sample = arguments[1];
    const std::string libraries = arguments[2];

    exchange::Tessaron2dInput input;
    std::ifstream file(sample, std::ios::binary);
    exchange::readArchive(file, input);
    std::stringstream archive;
    exchange::writeArchive(archive, input, exchange::ArchiveFormat::binary);
    exchange::Tessaron2dInput copy;
    exchange::readArchive(archive, copy);
    check(!copy.boundaries.partBoundaries.empty(), "the record comes back from a binary archive");

    const exchange::JobStart job = exchange::startJob(copy);
    check(job.jobId > 0, job.text.c_str());
    boost::shared_ptr<exchange::ProgressData> progress = exchange::createLocallyLinkedProgressData();
    progress->jobId = job.jobId;
    check(TessaronResources::displayProgressDialog(progress, "Pocket") == 1, "the job ends by itself");
    check(exchange::waitForJob(job.jobId, 60000) == exchange::JobState::finished, "the job finishes");
    const boost::shared_ptr<const exchange::ToolpathRecords> toolpath = exchange::jobToolpath(job.jobId);
    check(toolpath && !toolpath->records.empty(), "there is a toolpath");

    check(wxDynamicCast(nullptr, TessaronResources::ProgressDialog) == nullptr, "the window classes can be linked");
    TessaronResources::SmartLinkData links{};
    check(TessaronResources::displaySmartLinkDialog(&links) == 2, "a modal call without a display returns 2");

    util::TechnologyExpertData expert;
    check(util::getTechnologyExpertData(&expert) == 0 && !expert.partMaterials.empty(),
          "the engine finds its data beside the library");
    check(TessaronResources::getDefaultConfigFilePath("", 1 << 16) == libraries + "Tessaron Universal Client.cfg",
          "the module knows where it is installed");
    return failures != 0;
}
