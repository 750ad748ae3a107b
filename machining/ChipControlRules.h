#ifndef MACHINING_CHIPCONTROLRULES_H
#define MACHINING_CHIPCONTROLRULES_H

#include <tessaron/util/Parameterized.h>

#include <array>
#include <string>

namespace TessaronResources
{

namespace chipControl
{

// Controls of the dialog's templates.
inline constexpr int calculate = 3;
inline constexpr int stepoverPercent = 1040;
inline constexpr int stepoverLabel = 1041;
inline constexpr int help = 1065;
inline constexpr int surfaceSpeed = 4000;
inline constexpr int spindleSpeed = 4001;
inline constexpr int feedPerTooth = 4002;
inline constexpr int feedrate = 4003;
inline constexpr int stepover = 4004;
inline constexpr int chipThickness = 4005;
inline constexpr int removalRate = 4006;
inline constexpr int derivedQuantity = 4057;

/// The fields that hold a real number. The spindle speed is the only one that does not.
inline constexpr std::array realFields{surfaceSpeed, feedPerTooth, feedrate, stepover, stepoverPercent, chipThickness};

} // namespace chipControl

/// The quantity that is derived from all others, as the index of its entry in the dialog's list.
enum class DerivedQuantity
{
    none = -1,
    speed,
    feed,
    stepover,
    chipThickness,
};

inline constexpr int derivedQuantityCount = 4;

/// What the chip thickness dialog knows and decides, without its window. It works on a copy of the host's parameters,
/// which holds the spindle speed, the feedrate and the stepover, and hands it back on apply().
class ChipControlRules
{
public:
    /// \param target        the host's parameters; kept, and written by apply() only
    /// \param operationKind the kind code in the upper 16 bits
    /// \throws util::AssertionError when a parameter is missing, boost::bad_get when it is of another kind
    ChipControlRules(int operationKind, util::Parameterized* target, bool metric);

    // --- How the dialog looks

    int templateId() const;
    /// The string table ids of the list's entry for a quantity, and of the stepover's label (0: the template's label
    /// stays).
    int quantityTextId(int index) const;
    int stepoverLabelTextId() const;
    /// The string table id of a field's tooltip, which names its unit; 0 when it has none.
    int tooltipTextId(int field) const;
    /// The name of the help file that lies beside the module.
    const char* helpFileName() const;
    /// Whether a field can be edited while a quantity is derived. True for controls that hold no quantity.
    static bool isEnabled(int field, DerivedQuantity derived);

    // --- What the fields show

    /// The number behind one of chipControl::realFields.
    double& real(int field);
    /// The number behind the spindle speed's field.
    int& spindleSpeed();
    std::string removalRateText() const;

    // --- What the user does

    /// To be called after all fields have been read, when one of them has lost the focus.
    void fieldLeft(int field, DerivedQuantity derived);
    /// Replaces the host's parameters by the working set. The percentage decides about the stepover.
    void apply();

private:
    int kindCode() const { return m_operationKind >> 16; }
    bool isCutWidth() const;
    double toolDiameter();
    void percentToStepover();
    void stepoverToPercent();
    void clear(DerivedQuantity derived);
    void recalculate();

    util::Parameterized* m_target;
    util::Parameterized m_workingSet;
    int m_operationKind;
    bool m_metric;
    double m_surfaceSpeed = 0.0;
    double m_feedPerTooth = 0.0;
    double m_stepoverPercent = 0.0;
    double m_chipThickness = 0.0;
    double m_removalRate = 0.0;
};

} // namespace TessaronResources

#endif
