#ifndef TESSARON_ENGINE_TEMPLATESTORE_H
#define TESSARON_ENGINE_TEMPLATESTORE_H

// Stability: stable.

#include <tessaron/engine/TechnologyExpertData.h>
#include <tessaron/engine/TemplateInfo.h>
#include <tessaron/engine/TemplatePath.h>
#include <tessaron/util/Export.h>
#include <tessaron/util/Parameterized.h>

#include <string>
#include <vector>

namespace util
{

// The template store: named parameter sets ("templates") as files in folders.
//
// Every call returns 0 on success and otherwise a code of <tessaron/exchange/StatusTable.h>, names given below. No
// call throws, prints, or asks anything. A null output pointer gives exchange::status::internalError. All calls may be
// made from any thread and from several processes on one folder at the same time.
//
// Texts are byte strings, UTF-8 by convention. A folder may be written with either kind of separator and need not
// exist: reading finds nothing in it, saving creates it. Outputs are not changed by a call that fails, except where a
// call says otherwise.
//
// Saving puts a complete, flushed file in the place of the old one in a single step: after a crash, a full disk or a
// refused write there is either the old file or the new one, whole. Names become file names reversibly; see
// docs/template-store.md for the files, their formats and the guarantees.
//
// A stored template always has these texts, which the store keeps:
//   "Template Guid"           made when the template is first saved; a template that brings its own keeps it, and one
//                             that is saved without over a stored one of the same name takes that one's
//   "Template Version"        layout of the record, "1"
//   "Template Date Created"   seconds since 1970 (UTC), set when the guid is made and kept from then on
//   "Template Date Modified"  seconds since 1970 (UTC), set by every save
//   "Template CAM"            the CAM system that it comes from, "KORVEN" where it does not say; so it is in templates
//                             that are read

/// Fills `data` from the database that lies beside the engine library.
/// \returns expertDatabaseCorrupted when the file is missing, not a database or damaged; expertDatabaseQueryFailed when
/// it lacks a list or a list has other fields.
TESSARON_ENGINES_API int getTechnologyExpertData(TechnologyExpertData* data);

/// Reads the layout stored as `name` in `folder`.
/// \returns templateColumnsMissing when none is stored there; templateReadError, templateFormatError.
TESSARON_ENGINES_API int loadTemplateDefs(const std::string& folder, const std::string& name, TemplateInfo* info);

/// Stores the layout as `name` in `folder`, in the place of one that is there. A damaged one is kept beside it, as
/// "<name>.damaged.xml" or, where there is such a file already, "<name>.damaged-2.xml" and so on.
/// \returns templateWriteError; templateNameMissing when `name` is empty.
TESSARON_ENGINES_API int saveTemplateDefs(const std::string& folder, const std::string& name, const TemplateInfo& info);

/// Reads the list of known template folders kept in the folder `path`; an empty list when none is kept there.
/// \returns templateReadError, templateFormatError.
TESSARON_ENGINES_API int loadTemplateFolders(const std::string& path, std::vector<std::string>* folders);

/// Keeps a list of template folders in the folder `path`, in the place of one that is there. A damaged one is kept as
/// saveTemplateDefs() does.
/// \returns templateWriteError.
TESSARON_ENGINES_API int saveTemplateFolders(const std::string& path, const std::vector<std::string>& folders);

/// Lists the templates of a folder (its ".vtmpl" files that hold one template; sub-folders are not searched), in
/// ascending order of their names, letter case ignored at first. `selector` is there for engines with several sources
/// of templates; this store has one, and every value selects all of it.
///
/// `templates` is replaced also when the result is not 0: it then holds all templates that could be read. A file that
/// cannot be read never hides the others; the result is the code of the first such file in name order. Files that other
/// processes add or remove meanwhile may be in the list or not; all others are.
///
/// What a file held is remembered in the process and read again only when the file has changed.
/// \returns templateReadError when the folder or a file cannot be read, templateFormatError, templateWithoutGuid.
TESSARON_ENGINES_API int loadTemplateFiles(const std::string& folder, int selector,
                                           std::vector<Parameterized>* templates);

/// A file of a template folder that does not read as a template.
struct FaultyTemplateFile
{
    std::string path;
    int code = 0; ///< templateReadError, templateFormatError or templateWithoutGuid
};

/// As above, and names the files that it passes over for a fault, in name order: none when the result is 0, and none
/// when the folder itself cannot be read.
TESSARON_ENGINES_API int loadTemplateFiles(const std::string& folder, int selector,
                                           std::vector<Parameterized>* templates,
                                           std::vector<FaultyTemplateFile>* faulty);

/// Names the files that loadTemplateFiles() passes over, without the templates.
/// \returns as loadTemplateFiles().
TESSARON_ENGINES_API int findFaultyTemplateFiles(const std::string& folder, std::vector<FaultyTemplateFile>* faulty);

/// Reads the one template in the file `path`. A template without a name gets the one its file name stands for.
/// \returns templateReadError when the file is missing, a folder or not readable; templateFormatError when it holds
/// something else than one template; templateWithoutGuid.
TESSARON_ENGINES_API int loadTemplateFile(const std::string& path, Parameterized* result);

/// Reads the templates in the file `path`, in their stored order; a file with a single template counts as a list of
/// one. All of them or none.
/// \returns as loadTemplateFile().
TESSARON_ENGINES_API int loadTemplateArrayFile(const std::string& path, std::vector<Parameterized>* templates);

/// Saves a template. `path` is folder, separator, name as templatePath() makes it, and taken apart as
/// splitTemplatePath() says; where the path names the template otherwise than "Template Name" does, the path holds, and
/// "Template Name" follows it. On success `set` is what was stored: name, guid, version and dates are brought up
/// to date. It is not changed by a failed save.
/// With `failIfExists` a template of that name is left alone, and the result is templateNameDuplicated. Of several
/// processes that save one new name so at one time, exactly one succeeds.
/// \returns templateWriteError, templateNameMissing, templateNameDuplicated.
TESSARON_ENGINES_API int saveTemplateFile(const std::string& path, bool failIfExists, Parameterized* set);

/// Writes several templates into the one file `path` (taken as it stands, no extension is added), in the place of one
/// that is there. A template that has no guid, version or dates yet gets them in the file, as if it were saved.
/// \returns templateWriteError; templateNameMissing when `path` ends with a separator.
TESSARON_ENGINES_API int saveTemplateArrayFile(const std::string& path, const std::vector<Parameterized>& templates);

/// Deletes the stored template that has the name of `set`. Where both have a guid and the guids differ, the stored one
/// is another template, which is left alone.
/// \returns templateNameMissing; templateReadError when there is no such template; templateWriteError when it cannot be
/// removed.
TESSARON_ENGINES_API int deleteTemplateFile(const std::string& folder, const Parameterized& set);

/// Puts a name that no template in `folder` has, letter case ignored, under "Template Name" of `result`: `prefix` and
/// the first free number from 1 on. Nothing is reserved: another process can take the name before it is saved.
/// \returns templateReadError when the folder cannot be read.
TESSARON_ENGINES_API int genTemplateName(const std::string& folder, const std::string& prefix, Parameterized* result);

} // namespace util

#endif
