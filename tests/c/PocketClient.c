#include "tests/c/PocketClient.h"

#include <stddef.h>

struct Number
{
    const char* key;
    double value;
};

static const struct Number numbers[] = {
    {"Tool Diameter", 6}, {"Stepover", 2.4},     {"Depth of Cut", 3}, {"Top Material Z", 0},
    {"Z Depth", -5},      {"Rapid Plane Z", 10}, {"Feedrate", 400},   {"Cut Tolerance", 0.02},
};

static int addParameters(TessaronParameters* parameters)
{
    size_t i;
    int status = tessaronParametersSetInt(parameters, "Spindle Speed", 9000);
    for (i = 0; status == TESSARON_OK && i < sizeof numbers / sizeof *numbers; ++i)
        status = tessaronParametersSetDouble(parameters, numbers[i].key, numbers[i].value);
    return status;
}

/* A wall of three lines and a straight spline. */
static int addWall(TessaronInput* input)
{
    static const double corners[] = {20, 60, 20, 20, 80, 20, 80, 60};
    static const double top[] = {80, 60, 60, 60, 40, 60, 20, 60};
    static const double knots[] = {0, 0, 0, 0, 1, 1, 1, 1};
    const int status = tessaronInputAddPolyline(input, TESSARON_PART, corners, 4, 0);
    return status != TESSARON_OK ? status : tessaronInputAddSpline(input, TESSARON_PART, top, 4, knots, 8, NULL);
}

static int addCurves(TessaronInput* input)
{
    static const double block[] = {0, 0, 100, 0, 100, 80, 0, 80};
    static const double island[] = {50, 40};
    int status = tessaronInputAddPolyline(input, TESSARON_STOCK, block, 4, 1);
    if (status == TESSARON_OK)
        status = tessaronInputAddPolyline(input, TESSARON_PART, block, 4, 1);
    if (status == TESSARON_OK)
        status = addWall(input);
    if (status == TESSARON_OK)
        status = tessaronInputAddArc(input, TESSARON_PART, island, 6, 0, 6.283185307179586);
    return status;
}

TessaronInput* pocketFromC(void)
{
    TessaronInput* input = NULL;
    if (tessaronInputCreate(&input) == TESSARON_OK && addCurves(input) == TESSARON_OK &&
        addParameters(tessaronInputParameters(input)) == TESSARON_OK)
        return input;
    tessaronInputFree(input);
    return NULL;
}
