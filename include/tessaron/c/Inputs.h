#ifndef TESSARON_C_INPUTS_H
#define TESSARON_C_INPUTS_H

// Stability: experimental.

/* Inputs of 2-D pocketing jobs: the outlines of part and stock, holes to enter by, and the machining parameters.
 *
 * An outline is made of curves that meet end to end, in any order and direction, or of one closed curve. Points are
 * pairs of doubles, x and y, one behind the other. */

#include <tessaron/c/Parameters.h>

#ifdef __cplusplus
extern "C"
{
#endif

    typedef struct TessaronInput TessaronInput;

    /* What a curve bounds. */
    enum TessaronBoundary
    {
        TESSARON_PART = 0, /* the finished part: material that must stay */
        TESSARON_STOCK = 1 /* the stock: material that may be removed */
    };

    /* Something that an input asks for and a job does not do, or that the user should look at. */
    struct TessaronFinding
    {
        size_t size;       /* sizeof(struct TessaronFinding), set by the caller */
        int status;        /* a warning: -2000 or below */
        int hasPlace;      /* 1 when it is about the place x, y; else 0 */
        double x;          /* in the host's unit */
        double y;          /* in the host's unit */
        const char* field; /* the parameter that it is about, such as "Holder Clearance"; empty when none is */
        const char* text;  /* a sentence for the user */
    };

    /* Makes an input without curves and parameters, or a copy of one. */
    TESSARON_ENGINES_API int tessaronInputCreate(TessaronInput** created);
    TESSARON_ENGINES_API int tessaronInputCopy(const TessaronInput* input, TessaronInput** copy);
    TESSARON_ENGINES_API void tessaronInputFree(TessaronInput* input);

    /* The machining parameters of an input. The set belongs to the input: it lives as long, and changing it changes the
     * input. Null for null. */
    TESSARON_ENGINES_API TessaronParameters* tessaronInputParameters(TessaronInput* input);

    /* Adds a straight line. */
    TESSARON_ENGINES_API int tessaronInputAddLine(TessaronInput* input, int boundary, const double start[2],
                                                  const double end[2]);
    /* Adds straight lines through `count` points, at least 2; `closed` other than 0 adds the line back to the first. */
    TESSARON_ENGINES_API int tessaronInputAddPolyline(TessaronInput* input, int boundary, const double* points,
                                                      size_t count, int closed);
    /* Adds a circular arc of a radius above 0. It runs from the start angle to the end angle, counter-clockwise when
     * the end angle is the greater one, over at most a full turn, which is a circle. */
    TESSARON_ENGINES_API int tessaronInputAddArc(TessaronInput* input, int boundary, const double center[2],
                                                 double radius, double startAngle, double endAngle);
    /* Adds a B-spline curve of `count` control points and `knotCount` ascending knots; its degree is knotCount - count
     * - 1. `weights` has one for each control point, above 0, or is null for a curve that is not rational. */
    TESSARON_ENGINES_API int tessaronInputAddSpline(TessaronInput* input, int boundary, const double* controlPoints,
                                                    size_t count, const double* knots, size_t knotCount,
                                                    const double* weights);
    /* Removes all curves of a boundary. */
    TESSARON_ENGINES_API int tessaronInputClear(TessaronInput* input, int boundary);
    /* How many curves a boundary has. */
    TESSARON_ENGINES_API size_t tessaronInputCurveCount(const TessaronInput* input, int boundary);

    /* Adds a hole that is drilled already, to enter by. `usableDepth`: how deep the tool can enter there; `through`
     * other than 0: the hole goes through the stock. */
    TESSARON_ENGINES_API int tessaronInputAddHole(TessaronInput* input, const double center[2], double usableDepth,
                                                  int through);
    TESSARON_ENGINES_API size_t tessaronInputHoleCount(const TessaronInput* input);

    /* Sets the outline of the tool holder: `count` points of radius and height; 0 points for none. */
    TESSARON_ENGINES_API int tessaronInputSetHolderProfile(TessaronInput* input, const double* points, size_t count);

    /* Checks everything that can be checked without computing: returns what a job with this input would fail with; the
     * error has the field. On success the findings tell what is set and will not be used. */
    TESSARON_ENGINES_API int tessaronInputCheck(TessaronInput* input);
    /* The findings of the last check that succeeded; texts belong to the input, until its next check. */
    TESSARON_ENGINES_API size_t tessaronInputFindingCount(const TessaronInput* input);
    TESSARON_ENGINES_API int tessaronInputFinding(const TessaronInput* input, size_t index,
                                                  struct TessaronFinding* finding);

    /* Reads an input from an archive file, or from `size` bytes of an archive in memory, XML or binary as the archive
     * tells; writes one. `name` stands for the file in error texts and may be null. */
    TESSARON_ENGINES_API int tessaronInputRead(const char* path, TessaronInput** created);
    TESSARON_ENGINES_API int tessaronInputReadMemory(const void* bytes, size_t size, const char* name,
                                                     TessaronInput** created);
    TESSARON_ENGINES_API int tessaronInputWrite(const TessaronInput* input, const char* path, int format);

#ifdef __cplusplus
}
#endif

#endif
