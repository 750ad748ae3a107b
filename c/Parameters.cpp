#include "c/Parameters.h"

#include "c/Failure.h"
#include <tessaron/exchange/Archives.h>

#include <boost/variant/get.hpp>

#include <string>

namespace
{

using c_interface::Failure;
using c_interface::guarded;
using c_interface::needed;
using util::Parameterized;

const char* checkedKey(const char* key)
{
    if (*needed(key, "key") == '\0')
        throw Failure(TESSARON_INVALID_ARGUMENT, "A key must not be empty.", "key");
    return key;
}

Failure notFound(const char* key)
{
    return {TESSARON_NOT_FOUND, std::string("There is no parameter '") + key + "'.", key};
}

int set(TessaronParameters* parameters, const char* key, const Parameterized::Value& value)
{
    return guarded([&] { needed(parameters, "parameters")->values.set(checkedKey(key), value); });
}

/// The value of a kind under a key.
template <class Kind>
const Kind& get(const TessaronParameters* parameters, const char* key, const char* kindName)
{
    const Parameterized::Value* const value = needed(parameters, "parameters")->values.find(checkedKey(key));
    if (value == nullptr)
        throw notFound(key);
    const Kind* const found = boost::get<Kind>(value);
    if (found == nullptr)
        throw Failure(TESSARON_WRONG_KIND, std::string("The parameter '") + key + "' is no " + kindName + ".", key);
    return *found;
}

TessaronValueKind kindOf(const Parameterized::Value* value)
{
    return value == nullptr ? TESSARON_VALUE_NONE : static_cast<TessaronValueKind>(value->which() + 1);
}

} // namespace

int tessaronParametersCreate(TessaronParameters** created)
{
    return guarded([&] { *needed(created, "created") = new TessaronParameters; });
}

int tessaronParametersCopy(const TessaronParameters* parameters, TessaronParameters** copy)
{
    return guarded(
        [&] {
            *needed(copy, "copy") = new TessaronParameters{needed(parameters, "parameters")->values, false};
        });
}

void tessaronParametersFree(TessaronParameters* parameters)
{
    if (parameters != nullptr && !parameters->isMember)
        delete parameters;
}

int tessaronParametersSetInt(TessaronParameters* parameters, const char* key, int value)
{
    return set(parameters, key, value);
}

int tessaronParametersSetDouble(TessaronParameters* parameters, const char* key, double value)
{
    return set(parameters, key, value);
}

int tessaronParametersSetText(TessaronParameters* parameters, const char* key, const char* value)
{
    return guarded(
        [&] { needed(parameters, "parameters")->values.set(checkedKey(key), std::string(needed(value, "value"))); });
}

int tessaronParametersErase(TessaronParameters* parameters, const char* key)
{
    return guarded(
        [&]
        {
            if (!needed(parameters, "parameters")->values.has(checkedKey(key)))
                throw notFound(key);
            parameters->values.erase(key);
        });
}

int tessaronParametersGetInt(const TessaronParameters* parameters, const char* key, int* value)
{
    return guarded([&] { *needed(value, "value") = get<int>(parameters, key, "integer"); });
}

int tessaronParametersGetDouble(const TessaronParameters* parameters, const char* key, double* value)
{
    return guarded(
        [&]
        {
            const int* const integer = needed(parameters, "parameters")->values.findInt(checkedKey(key));
            *needed(value, "value") = integer != nullptr ? *integer : get<double>(parameters, key, "number");
        });
}

int tessaronParametersGetText(const TessaronParameters* parameters, const char* key, const char** value)
{
    return guarded([&] { *needed(value, "value") = get<std::string>(parameters, key, "text").c_str(); });
}

int tessaronParametersKind(const TessaronParameters* parameters, const char* key, int* kind)
{
    return guarded([&]
                   { *needed(kind, "kind") = kindOf(needed(parameters, "parameters")->values.find(checkedKey(key))); });
}

size_t tessaronParametersCount(const TessaronParameters* parameters)
{
    return parameters == nullptr ? 0 : parameters->values.size();
}

int tessaronParametersNext(const TessaronParameters* parameters, const char* key, const char** next)
{
    return guarded(
        [&]
        {
            const Parameterized::Params& all = needed(parameters, "parameters")->values.params();
            const auto it = key == nullptr ? all.begin() : all.upper_bound(key);
            if (it == all.end())
                throw Failure(TESSARON_NOT_FOUND, "There is no further parameter.");
            *needed(next, "next") = it->first.c_str();
        });
}

int tessaronParametersRead(const char* path, TessaronParameters** created)
{
    return guarded(
        [&]
        {
            needed(created, "created");
            Parameterized values;
            c_interface::withFile(TESSARON_READ_ERROR, path, [&] { exchange::readArchiveFile(path, values); });
            *created = new TessaronParameters{values, false};
        });
}

int tessaronParametersWrite(const TessaronParameters* parameters, const char* path, int format)
{
    return guarded(
        [&]
        {
            const Parameterized& values = needed(parameters, "parameters")->values;
            c_interface::withFile(TESSARON_WRITE_ERROR, path,
                                  [&]
                                  { exchange::writeArchiveFile(path, values, c_interface::archiveFormat(format)); });
        });
}
