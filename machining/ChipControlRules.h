#ifndef MACHINING_CHIPCONTROLRULES_H
#define MACHINING_CHIPCONTROLRULES_H

#include "machining/ChipControlFields.h"
#include "machining/ChipControlNotes.h"
#include "machining/CutValues.h"
#include <tessaron/util/Parameterized.h>

#include <string>
#include <vector>

namespace TessaronResources
{

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
    int removalRateUnitTextId() const;
    /// The name of the help file that lies beside the module.
    const char* helpFileName() const;
    /// Whether a field can be edited while a quantity is derived. True for controls that hold no quantity.
    static bool isEnabled(int field, DerivedQuantity derived);

    // --- What the fields show

    /// The number behind one of chipControl::realFields.
    double& real(int field);
    /// The number behind the spindle speed's field.
    int& spindleSpeed();
    /// With two decimals; with two significant digits where that would read zero and is not.
    std::string removalRateText() const;
    /// What there is to tell about the cut.
    std::vector<ChipControlNote> notes();

    // --- What the user does

    /// Whether the fields satisfy the formulas already. A field that is left need not be recalculated then, unless
    /// something was edited.
    bool agree();
    /// To be called after all fields have been read, when one of them has lost the focus.
    void fieldLeft(int field, DerivedQuantity derived);
    /// Replaces the host's parameters by the working set. The percentage decides about the stepover.
    void apply();

private:
    int kindCode() const { return m_operationKind >> 16; }
    bool isCutWidth() const;
    double toolDiameter();
    CutValues cut();
    double stepoverInPercent();
    void percentToStepover();
    void clear(DerivedQuantity derived);
    void recalculate();

    util::Parameterized* m_target;
    util::Parameterized m_workingSet;
    int m_operationKind;
    bool m_metric;
    DerivedQuantity m_lastDerived = DerivedQuantity::none;
    double m_surfaceSpeed = 0.0;
    double m_feedPerTooth = 0.0;
    double m_stepoverPercent = 0.0;
    double m_chipThickness = 0.0;
    double m_removalRate = 0.0;
};

} // namespace TessaronResources

#endif
