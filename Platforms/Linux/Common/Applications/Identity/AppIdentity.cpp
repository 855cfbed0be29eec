#include "Applications/Identity/AppIdentity.hpp"

#include "Applications/Identity/ExecMatching.hpp"
#include "Text/PlainText.hpp"

#include <algorithm>
#include <array>
#include <functional>
#include <string_view>
#include <vector>

namespace vireline::xdg::AppIdentity {
namespace {

using ExecMatching::Process;
using Candidates = std::vector<const IndexedEntry*>;

/// Keeps only the candidates that satisfy `isBetter`, unless there are none.
void prefer(Candidates& candidates, const std::function<bool(const IndexedEntry&)>& isBetter) {
    const auto better = [&isBetter](const IndexedEntry* entry) { return isBetter(*entry); };
    if (std::ranges::any_of(candidates, better))
        std::erase_if(candidates, std::not_fn(better));
}

std::optional<ExecMatching::Quality> bestQuality(const Candidates& candidates,
                                                 const Process& process) {
    std::optional<ExecMatching::Quality> best;
    for (const IndexedEntry* entry : candidates)
        best = std::max(best, ExecMatching::quality(*entry, process));
    return best;
}

/// Keeps the candidates that match the process best, then prefers those shown in menus.
void narrow(Candidates& candidates, const Process& process) {
    if (candidates.size() < 2)
        return;
    if (const auto best = bestQuality(candidates, process)) {
        prefer(candidates, [&](const IndexedEntry& entry) {
            return ExecMatching::quality(entry, process) == best;
        });
    }
    prefer(candidates, [](const IndexedEntry& entry) { return !entry.entry.noDisplay; });
}

const IndexedEntry* first(const Candidates& candidates) {
    return candidates.empty() ? nullptr : candidates.front();
}

/// The single candidate, or the first if all of them start the same program; null if the choice is
/// ambiguous.
const IndexedEntry* only(const Candidates& candidates) {
    const auto isAlike = [&candidates](const IndexedEntry* entry) {
        return entry->command == candidates.front()->command;
    };
    return std::ranges::all_of(candidates, isAlike) ? first(candidates) : nullptr;
}

class Search {
public:
    Search(const WindowTraits& window, const ProcessFacts& facts, const DesktopEntryIndex& index)
        : window_(window), process_(ExecMatching::prepared(facts)), index_(index) {}

    [[nodiscard]] const IndexedEntry* run() const {
        for (const auto step : {&Search::byToolkitID, &Search::byStartupWMClass, &Search::byID,
                                &Search::byTail, &Search::byProcess}) {
            if (const IndexedEntry* found = (this->*step)())
                return found;
        }
        return nullptr;
    }

private:
    /// The matching entries, except for interpreters that merely run the window's script.
    [[nodiscard]] Candidates all(const std::function<bool(const IndexedEntry&)>& fits) const {
        Candidates found;
        for (const IndexedEntry& entry : index_.entries()) {
            if (fits(entry) && !ExecMatching::isInterpreterOfScript(entry, process_))
                found.push_back(&entry);
        }
        return found;
    }

    [[nodiscard]] std::array<std::string_view, 2> classNames() const {
        return {window_.instance, window_.className};
    }

    [[nodiscard]] const IndexedEntry* byToolkitID() const {
        for (const std::string& id : {window_.gtkApplicationID, window_.kdeDesktopFile}) {
            if (const IndexedEntry* entry = index_.findPath(id))
                return entry;
            if (const IndexedEntry* entry =
                    index_.find(DesktopEntries::idFor(PlainText::baseName(id))))
                return entry;
        }
        return nullptr;
    }

    [[nodiscard]] const IndexedEntry* byStartupWMClass() const {
        for (const std::string_view name : classNames()) {
            const auto claims = [name](const IndexedEntry& entry) {
                return entry.entry.startupWMClass == name;
            };
            if (const IndexedEntry* entry = claimant(name, claims))
                return entry;
        }
        for (const std::string_view name : classNames()) {
            const auto claims = [wanted = PlainText::folded(name)](const IndexedEntry& entry) {
                return entry.foldedWMClass == wanted;
            };
            if (const IndexedEntry* entry = claimant(name, claims))
                return entry;
        }
        return nullptr;
    }

    /// The entry with the best claim to the class `name`. An entry that has it as its ID and sets
    /// no StartupWMClass beats another entry's StartupWMClass if the process matches it.
    [[nodiscard]] const IndexedEntry*
    claimant(std::string_view name, const std::function<bool(const IndexedEntry&)>& claims) const {
        if (name.empty())
            return nullptr;
        Candidates candidates = all(claims);
        if (candidates.empty())
            return nullptr;
        narrow(candidates, process_);
        const std::string folded = PlainText::folded(name);
        prefer(candidates, [&](const IndexedEntry& entry) { return entry.foldedID == folded; });
        const Candidates namesakes = all([&](const IndexedEntry& entry) {
            return entry.foldedID == folded && entry.foldedWMClass.empty();
        });
        const bool isBetterByID =
            bestQuality(namesakes, process_) > bestQuality(candidates, process_);
        return isBetterByID ? first(namesakes) : first(candidates);
    }

    [[nodiscard]] const IndexedEntry* byID() const {
        for (const std::string_view name : classNames()) {
            const IndexedEntry* entry = index_.find(name);
            if (entry != nullptr && !ExecMatching::isInterpreterOfScript(*entry, process_))
                return entry;
        }
        for (const std::string_view name : classNames()) {
            std::string wanted = PlainText::folded(name);
            // IDs contain no spaces; entries use dashes instead.
            std::ranges::replace(wanted, ' ', '-');
            Candidates candidates =
                all([&wanted](const IndexedEntry& entry) { return entry.foldedID == wanted; });
            narrow(candidates, process_);
            if (const IndexedEntry* entry = first(candidates))
                return entry;
        }
        return nullptr;
    }

    [[nodiscard]] const IndexedEntry* byTail() const {
        for (const std::string_view name : classNames()) {
            const std::string wanted = PlainText::folded(name);
            if (wanted.empty())
                continue;
            Candidates candidates =
                all([&wanted](const IndexedEntry& entry) { return entry.tail == wanted; });
            narrow(candidates, process_);
            // Several programs may be called "Terminal", so a guess would often be wrong.
            if (const IndexedEntry* entry = only(candidates))
                return entry;
        }
        return nullptr;
    }

    [[nodiscard]] const IndexedEntry* byProcess() const {
        for (const std::string_view name : classNames()) {
            Candidates asking = all([name](const IndexedEntry& entry) {
                const auto& classes = entry.command.windowClasses;
                return !name.empty() && std::ranges::find(classes, name) != classes.end();
            });
            narrow(asking, process_);
            if (const IndexedEntry* entry = first(asking))
                return entry;
        }
        Candidates started = all([this](const IndexedEntry& entry) {
            return ExecMatching::quality(entry, process_).has_value();
        });
        narrow(started, process_);
        prefer(started, [this](const IndexedEntry& entry) { return isNamedAlike(entry); });
        return only(started);
    }

    /// Whether the entry's ID, or its app name in a snap, matches the window's or the process's
    /// name.
    [[nodiscard]] bool isNamedAlike(const IndexedEntry& entry) const {
        const auto isLike = [&entry](std::string_view name) {
            const std::string folded = PlainText::folded(PlainText::baseName(name));
            return !folded.empty() && (folded == entry.foldedID || folded == entry.tail ||
                                       folded == PlainText::folded(entry.command.snapApp));
        };
        return isLike(window_.instance) || isLike(window_.className) ||
               std::ranges::any_of(process_.programs, isLike);
    }

    const WindowTraits& window_;
    Process process_;
    const DesktopEntryIndex& index_;
};

/// Old versions of Wine use one class for all programs and tell them apart by instance.
bool isSharedClass(const WindowTraits& window) {
    return window.className == "Wine" && !window.instance.empty();
}

IdentifiedApp ownApp(const WindowTraits& window, const ProcessFacts& process,
                     const DesktopEntryIndex& index) {
    IdentifiedApp app;
    app.name = isSharedClass(window) ? window.instance : window.className;
    if (app.name.empty())
        app.name = window.instance;
    if (app.name.empty())
        app.name = PlainText::clean(PlainText::baseName(process.executable));
    if (app.name.empty())
        app.name = unknownID;
    app.bundleID = app.name;
    // A script's window may have the class of an interpreter that has an entry of its own, but it
    // is not that app.
    while (index.find(app.bundleID) != nullptr)
        app.bundleID += "-window";
    app.path = process.executable;
    if (!app.path.starts_with('/')) {
        app.path = app.bundleID;
        std::ranges::replace(app.path, '/', '-');
        app.path.insert(0, 1, '/');
    }
    return app;
}

}

IdentifiedApp identify(const WindowTraits& window, const ProcessFacts& process,
                       const DesktopEntryIndex& index,
                       const std::optional<IdentifiedApp>& launched) {
    if (launched)
        return *launched;
    if (const IndexedEntry* found = Search{window, process, index}.run())
        return appOf(found->entry);
    return ownApp(window, process, index);
}

IdentifiedApp appOf(const DesktopEntry& entry) {
    return {.bundleID = entry.id, .name = entry.name, .path = entry.path, .hasEntry = true};
}

}
