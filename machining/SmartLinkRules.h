#ifndef MACHINING_SMARTLINKRULES_H
#define MACHINING_SMARTLINKRULES_H

#include <tessaron/machining/SmartLinkData.h>

namespace TessaronResources
{

/// What the SmartLink dialog shows of the host's record and what it writes back.
class SmartLinkRules
{
public:
    static constexpr int lastPosition = 10;

    /// Keeps a reference to the record.
    explicit SmartLinkRules(SmartLinkData& data) : m_data(data) {}

    bool depthFirst() const { return m_data.depthFirst > 0; }
    bool rapidPlaneOnly() const { return m_data.rapidPlaneOnly != 0; }
    /// Where the track bar stands for the record's preference, within its range.
    int position() const;

    /// Writes through at once: the track bar's value survives a cancel.
    void moveTo(int position) { m_data.linkPreference = position / 10.0; }
    void apply(bool depthFirst, bool rapidPlaneOnly);

    /// Whether the track bar and the texts at its ends can be used.
    static bool preferenceEnabled(bool rapidPlaneOnly) { return rapidPlaneOnly; }

private:
    SmartLinkData& m_data;
};

} // namespace TessaronResources

#endif
