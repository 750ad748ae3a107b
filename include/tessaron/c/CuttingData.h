#ifndef TESSARON_C_CUTTINGDATA_H
#define TESSARON_C_CUTTINGDATA_H

// Stability: experimental.

/* Cutting data: the calculator of feeds and speeds, and the option lists of the technology expert. */

#include <tessaron/c/Common.h>

#ifdef __cplusplus
extern "C"
{
#endif

    /* The quantities of a milling cut. 0 stands for an unknown. Units: millimetres, or inches when not metric;
     * <tessaron/engine/Calculator.h> has the formulas and their sources. */
    struct TessaronCut
    {
        size_t size;                /* sizeof(struct TessaronCut), set by the caller */
        int metric;                 /* 0: inches */
        int fluteCount;             /* of the tool */
        double toolDiameter;        /* mm or in */
        double depthOfCut;          /* mm or in */
        double surfaceSpeed;        /* m/min or ft/min */
        double spindleSpeed;        /* whole revolutions per minute */
        double feedPerTooth;        /* mm or in */
        double feedrate;            /* mm/min or in/min */
        double stepover;            /* mm or in */
        double chipThickness;       /* mm or in: the largest one that a tooth cuts */
        double materialRemovalRate; /* cm^3/min or in^3/min; always computed */
    };

    /* Derives the unknown quantities of a cut from the known ones, in place. What cannot be derived stays 0.
     * TESSARON_INVALID_ARGUMENT when a spindle speed is no whole number. */
    TESSARON_ENGINES_API int tessaronCutCalculate(struct TessaronCut* cut);

    /* Lists of the technology expert, by the key that parameter sets store a choice under. */
    struct TessaronExpertOption
    {
        size_t size;      /* sizeof(struct TessaronExpertOption), set by the caller */
        int code;         /* what parameter sets store */
        double factor;    /* what goes under the "... Factor" key of the list; 1 is neutral */
        const char* text; /* what the user reads; belongs to the thread until its next call of tessaronExpertOption() */
    };

    /* How many options a list has: "Part Material Type", "Part Material Hardness Type", "Part Holding Type", "Tool
     * Coating Type", "Machine Taper Type", "Tool Holder Type" or "Aggressiveness Type". TESSARON_NOT_FOUND for any
     * other; -1032 and -1033 when the database beside the engine is missing or damaged. */
    TESSARON_ENGINES_API int tessaronExpertOptionCount(const char* list, size_t* count);
    /* An option of a list, counted from 0. */
    TESSARON_ENGINES_API int tessaronExpertOption(const char* list, size_t index, struct TessaronExpertOption* option);

#ifdef __cplusplus
}
#endif

#endif
