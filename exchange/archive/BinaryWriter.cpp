#include "exchange/archive/BinaryWriter.h"

#include "exchange/archive/BinaryFormat.h"

namespace exchange::archive
{

BinaryWriter::BinaryWriter(std::ostream& stream) : m_sink(stream)
{
    count(signatureSize);
    m_sink.append(signature, signatureSize);
    put(static_cast<std::uint16_t>(libraryVersion));
    m_sink.append(nativeMarks, sizeof nativeMarks);
}

void BinaryWriter::classInfo(int, bool tracking, unsigned version)
{
    put(static_cast<unsigned char>(tracking));
    put(version);
}

void BinaryWriter::newClass(int classId, const char* key, bool tracking, unsigned version)
{
    knownClass(classId);
    if (key != nullptr)
        content(std::string(key));
    classInfo(classId, tracking, version);
}

void BinaryWriter::nullPointer()
{
    knownClass(nullClassId);
}

} // namespace exchange::archive
