#ifndef TESSARON_C_TEMPLATES_H
#define TESSARON_C_TEMPLATES_H

// Stability: experimental.

/* The template store: named parameter sets as files in folders. <tessaron/engine/TemplateStore.h> says what each call
 * promises, and which statuses it returns; docs/template-store.md describes the files. */

#include <tessaron/c/Parameters.h>

#ifdef __cplusplus
extern "C"
{
#endif

    typedef struct TessaronTemplateList TessaronTemplateList;

    /* Lists the templates of a folder in ascending order of their names. A file that cannot be read does not hide the
     * others and is no failure: it is among the faults. A folder that does not exist has no templates. */
    TESSARON_ENGINES_API int tessaronTemplatesList(const char* folder, TessaronTemplateList** created);
    /* Reads the templates of one file, in their stored order: all of them or none. */
    TESSARON_ENGINES_API int tessaronTemplatesRead(const char* path, TessaronTemplateList** created);
    TESSARON_ENGINES_API void tessaronTemplatesFree(TessaronTemplateList* templates);

    TESSARON_ENGINES_API size_t tessaronTemplatesCount(const TessaronTemplateList* templates);
    /* The parameter set of template `index`, counted from 0. It belongs to the list; changing it changes no file. */
    TESSARON_ENGINES_API int tessaronTemplatesAt(TessaronTemplateList* templates, size_t index,
                                                 TessaronParameters** parameters);
    /* The files that the list passes over. */
    TESSARON_ENGINES_API size_t tessaronTemplatesFaultCount(const TessaronTemplateList* templates);
    TESSARON_ENGINES_API int tessaronTemplatesFault(const TessaronTemplateList* templates, size_t index,
                                                    const char** path, int* status);
    /* Writes the templates of a list into one file, in the place of one that is there. */
    TESSARON_ENGINES_API int tessaronTemplatesWrite(const TessaronTemplateList* templates, const char* path);

    /* Saves a template in a folder under a name. On success the set is what was stored: name, guid, version and dates
     * are brought up to date. With `overwrite` 0 a template of that name is left alone: -1045. */
    TESSARON_ENGINES_API int tessaronTemplateSave(const char* folder, const char* name, int overwrite,
                                                  TessaronParameters* parameters);
    /* Deletes the template of a folder that has this name. */
    TESSARON_ENGINES_API int tessaronTemplateDelete(const char* folder, const char* name);
    /* A name that no template of the folder has: `prefix` and the first free number. */
    TESSARON_ENGINES_API int tessaronTemplateFreeName(const char* folder, const char* prefix, const char** name);

#ifdef __cplusplus
}
#endif

#endif
