#ifndef ENGINE_POCKETING_MOVES_ROUTEPLANNER_H
#define ENGINE_POCKETING_MOVES_ROUTEPLANNER_H

#include "engine/jobs/CancelFlag.h"
#include "engine/pocketing/GougeCheck.h"
#include "engine/pocketing/Rings.h"
#include "engine/pocketing/moves/ClearedRoom.h"
#include "engine/pocketing/moves/EntryFinder.h"
#include "engine/pocketing/moves/Route.h"

#include <functional>
#include <optional>
#include <vector>

namespace exchange::pocketing
{

/// What links are planned by. Lengths are in steps, rates in steps a minute.
struct LinkSettings
{
    double toolRadius = 0;
    double stepover = 0;
    double feed = 0;
    double slotFeed = 0;
    double highFeed = 0;
    double rampFeed = 0;
    double rapid = 0;
    double verticalRapid = 0;
    /// From the depth of a cut up to where rapids run, and to just above the level before.
    double liftHeight = 0;
    double hopHeight = 0;
    double depthOfCut = 0;
    double plungeClearance = 0;
    /// How long an entry takes.
    double entryMinutes = 0;
    /// 0 always links at rapid through cleared room, 1 always at the high feed rate; between, the times are weighed.
    double highFeedPreference = 0.5;
    /// Of the arcs on to walls; 0 for none.
    double leadRadius = 0;
    /// The lead off the wall.
    bool leadsOut = true;
    /// Whether material lies to the right of a cut.
    bool materialOnRight = true;
};

/// Puts the cuts of a region in order and plans how the tool gets from one to the next: through what is cleared where
/// that takes the least time, through uncut material where that is shorter than a new entry, else over it.
class RoutePlanner
{
public:
    RoutePlanner(const GougeCheck& walls, const EntryFinder& entries, const LinkSettings& settings,
                 const jobs::CancelFlag& cancel)
        : m_walls(walls), m_entries(entries), m_settings(settings), m_cancel(cancel), m_room(walls, settings.toolRadius)
    {
    }

    /// \param from where the tool comes from
    Route plan(const Ring& root, const Vec& from);

private:
    /// A pass in the order of cutting.
    struct Pass
    {
        const Track* loop = nullptr;
        bool wall = false;
        /// Passes in a row with the same number lie beside each other, and no matter which is cut first; 0: none do.
        int group = 0;
    };
    /// A way to a pass at the depth of the cut.
    struct DownLink
    {
        /// First along the pass before, then straight.
        std::optional<Leg> walk;
        Vec leaving;
        TrackPlace start;
        /// Where the way leaves the pass before: false at its end, true after its lead off.
        bool afterLead = false;
        double minutes = 0;
        /// Nothing is cut on the way.
        bool cleared = false;
        /// From one ring to the next, which is part of the cut and no link.
        bool isCut = false;
    };

    void order(const Ring& root, const Vec& from);
    void addOrdered(const std::vector<const Track*>& loops, bool wall, Vec& from);
    /// Plans a step to a pass and lets `set` give it the cut; false when it cannot be reached.
    using PassSetter = std::function<void(const TrackPlace& start, const Vec& comingFrom, Step& step)>;
    bool reach(std::size_t position, Route& route, Vec& at, const PassSetter& set);
    void planGroup(std::size_t first, std::size_t last, Route& route, Vec& at);
    void noteCut(const Pass& pass);
    void consider(const Step& last, const Track& walk, const Vec& leaving, bool afterLead, const TrackPlace& start,
                  std::optional<DownLink>& best) const;
    /// A way beside the wall just cut, as far from it as a lead ends: the wall is not followed twice.
    void considerBeside(const Step& last, const Pass& pass, std::optional<DownLink>& best) const;
    std::optional<DownLink> downLink(const Step& last, const Pass& pass) const;
    /// A place of the pass beside what is cut, to be reached over everything when there is no other way but an entry.
    std::optional<TrackPlace> dropBeside(const Pass& pass, Step& step) const;
    bool fly(const Step& last, const Pass& pass, const std::optional<DownLink>& down, Step& step) const;
    bool enter(std::size_t position, const Vec& from, Step& step) const;
    /// Gives the step its pass from a place on, with leads at a wall.
    void setPass(const Pass& pass, const TrackPlace& start, const Vec& comingFrom, Step& step, Route& route) const;
    bool setLeads(const Pass& pass, const TrackPlace& start, const Vec& comingFrom, Step& step) const;
    std::optional<Vec> clearedPlaceNear(const Vec& place) const;
    /// Whether a way is long enough for the high feed rate.
    bool isWorthLinking(double length) const;
    /// Straight from place to place: through cleared room at the high feed rate, through material as slots.
    std::vector<Leg> straight(const Vec& from, const Vec& to) const;
    void approach(const Vec& from, const Vec& to, Step& step) const;
    /// Has a pass along walls run through air at the high feed rate: along edges of the stock that are no walls.
    void hurryThroughAir(Step& step) const;
    double minutesFor(const Leg& leg) const;

    const GougeCheck& m_walls;
    const EntryFinder& m_entries;
    const LinkSettings m_settings;
    const jobs::CancelFlag& m_cancel;

    std::vector<Pass> m_passes;
    /// What is cut so far, with the boxes about it.
    struct CutLoop
    {
        const Track* loop;
        Box box;
    };
    std::vector<CutLoop> m_cut;
    ClearedRoom m_room;
    int m_groups = 0;
};

} // namespace exchange::pocketing

#endif
