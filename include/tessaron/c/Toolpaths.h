#ifndef TESSARON_C_TOOLPATHS_H
#define TESSARON_C_TOOLPATHS_H

// Stability: experimental.

/* Toolpaths: records in the order in which the machine executes them. A move has its end only: it starts where the move
 * before it ended. Feed rate, spindle speed and tool axis hold until the next record of their kind. */

#include <tessaron/c/Common.h>

#ifdef __cplusplus
extern "C"
{
#endif

    typedef struct TessaronToolpath TessaronToolpath;

    /* Kinds of records; the tags that archives store. */
    enum TessaronRecordKind
    {
        TESSARON_RECORD_RAPID_MOVE = 0,
        TESSARON_RECORD_LINEAR_MOVE = 1,
        TESSARON_RECORD_ARC_1 = 2, /* counter-clockwise, seen against the direction of the z axis */
        TESSARON_RECORD_ARC_0 = 3, /* clockwise */
        TESSARON_RECORD_FEED_RATE = 4,
        TESSARON_RECORD_SPINDLE_SPEED = 5,
        TESSARON_RECORD_CUSTOM = 6, /* free text: tessaronToolpathText() */
        TESSARON_RECORD_TOOL_AXIS = 7
    };

    /* One record: six doubles, so that an array of records is a table of numbers. Values that the kind does not have
     * are 0. */
    struct TessaronRecord
    {
        double kind;   /* one of TessaronRecordKind */
        double x;      /* end of a move, direction of a tool axis */
        double y;      /* as x */
        double z;      /* as x */
        double radius; /* of an arc; negative for the longer one */
        double value;  /* the feed rate or the spindle speed */
    };

    /* Makes a toolpath without records. */
    TESSARON_ENGINES_API int tessaronToolpathCreate(TessaronToolpath** created);
    TESSARON_ENGINES_API void tessaronToolpathFree(TessaronToolpath* toolpath);

    /* How many records a toolpath has. */
    TESSARON_ENGINES_API size_t tessaronToolpathCount(const TessaronToolpath* toolpath);
    /* Copies `count` records from number `first` on, counted from 0, into an array; TESSARON_NOT_FOUND when there are
     * fewer. */
    TESSARON_ENGINES_API int tessaronToolpathRecords(const TessaronToolpath* toolpath, size_t first, size_t count,
                                                     struct TessaronRecord* records);
    /* The text of a custom record; TESSARON_WRONG_KIND for a record of another kind. */
    TESSARON_ENGINES_API int tessaronToolpathText(const TessaronToolpath* toolpath, size_t index, const char** text);

    /* Appends records: none of them custom ones, and all of them or, after an error, none. TESSARON_INVALID_ARGUMENT
     * for a toolpath that belongs to a job. */
    TESSARON_ENGINES_API int tessaronToolpathAppend(TessaronToolpath* toolpath, const struct TessaronRecord* records,
                                                    size_t count);
    /* Appends a custom record. */
    TESSARON_ENGINES_API int tessaronToolpathAppendText(TessaronToolpath* toolpath, const char* text);

    /* Reads a toolpath from an archive file, and writes one; toolpath archives are XML. */
    TESSARON_ENGINES_API int tessaronToolpathRead(const char* path, TessaronToolpath** created);
    TESSARON_ENGINES_API int tessaronToolpathWrite(const TessaronToolpath* toolpath, const char* path);

    /* Writes a toolpath as G-code for milling controls. `settings` are names and values in turn, ended by null:
     * {"units", "inch", "tool", "3", NULL}; null for the defaults. docs/gcode.md lists them. The file appears whole or
     * not at all; TESSARON_INVALID_ARGUMENT for a setting that is none, with its name as the field. */
    TESSARON_ENGINES_API int tessaronToolpathWriteGcode(const TessaronToolpath* toolpath, const char* path,
                                                        const char* const* settings);

#ifdef __cplusplus
}
#endif

#endif
