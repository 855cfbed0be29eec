/// The paper world as tests see it: displays are plugged in, applications start, the pointer moves,
/// and time passes only when a test says so. What the program asked of the system is written down.
#pragma once

#include "Cocoa/Extensions.hpp"
#include "Runtime/Runtime.hpp"

#include <functional>
#include <map>
#include <set>
#include <string>
#include <vector>

namespace paper {

/// Calls `body` as AppKit's loop calls the program: an exception that comes out ends here, and
/// counts.
template <class Body>
void guarded(const std::string& where, Body body);
void noteEscaped(const std::string& where, NSException* exception);
/// Exceptions that left the program, as "where: reason".
[[nodiscard]] const std::vector<std::string>& escapedExceptions();

// --- Time.
[[nodiscard]] double now();
/// Runs everything that is due at this moment.
void drain();
/// Lets time pass; timers, display links and animations are served on the way.
void advance(double seconds);
/// The main thread stands still for so long: time passes and nothing is served.
void stall(double seconds);
/// What happens meanwhile, each time.
void onStall(std::function<void()> meanwhile);
[[nodiscard]] std::size_t pendingTimers();
/// Blocks given to background queues wait until it is set to false again.
void holdBackground(bool holds);

// --- Displays, in NSScreen's coordinates: y upwards from the bottom left corner of the first.
struct Display {
    unsigned number = 1;
    NSRect frame{{0, 0}, {1440, 900}};
    NSRect visible{{0, 0}, {1440, 875}};
    double scale = 2;
    unsigned unit = 0;
    std::string name = "Display " + std::to_string(number);
};
/// These are the displays from now on; says so to the program.
void plug(const std::vector<Display>& displays);
/// The callback of Core Graphics; does not turn the loop.
void announceMainDisplay(unsigned number);

// --- Applications.
struct App {
    std::string bundleID;
    std::string name;
    int processIdentifier = 0;
    std::string path;
};
/// Runs without being announced, as those that ran before the program.
NSRunningApplication* run(const App& app);
NSRunningApplication* launch(const App& app);
void quit(int processIdentifier);
/// Ends and says so while the workspace still lists it.
void quitButStayListed(int processIdentifier);
/// The user hides all programs but the one in front.
void hideOthers();
/// The system grants no activation, as from version 14 on it need not.
void refuseActivation(bool refuses);
/// The user opens the program that runs already.
void reopen();
/// Found by the workspace without running.
void install(const App& app);
/// The login item can be neither registered nor removed, for this reason; 0 for none.
void refuseLoginItem(int code);
/// What the program asked of the system, in order: "open /Applications/Notes.app".
[[nodiscard]] std::vector<std::string>& requests();

// --- Pointer and keyboard, in NSScreen's coordinates.
void movePointer(NSPoint to);
void press(bool control = false);
void release();
void rightPress();
/// The user drags a slider to this value and lets go.
void dragSlider(NSSlider* slider, double value);
void click(NSPoint at, bool control = false);
/// One that happened so long ago and that the main thread comes to only now.
void clickEarlier(NSPoint at, double seconds);
/// The button goes up where no window hears of it.
void loseRelease();
[[nodiscard]] NSUInteger pressedButtons();
void setEscapeDown(bool isDown);
[[nodiscard]] bool isEscapeDown();
/// A drag of files out of another program, with the button held.
void beginFileDrag(const std::vector<std::string>& paths, NSDragOperation allowed);
/// True if the window below took the drop.
bool dropFiles();
void cancelFileDrag();

// --- Windows.
[[nodiscard]] NSWindow* windowTitled(const std::string& beginning);
void display();
/// What a menu that is popped up is answered with while it is open; nil closes it.
void answerMenus(std::function<NSMenuItem*(NSMenu*)> answer);
[[nodiscard]] NSMenuItem* itemTitled(NSMenu* menu, const std::string& title);
/// Opens the status item's menu and chooses this entry; false if there is none.
bool chooseStatusItem(const std::string& title);
/// Status items, event monitors, display links and windows that are still there.
[[nodiscard]] std::vector<std::string> leftovers();

/// What the image that was drawn last is made of, in order: "draw trash.fill".
[[nodiscard]] std::vector<std::string>& drawing();

/// The user goes to another desktop, or to another program's full screen.
void showSpace(int number, bool isFullScreen = false);
/// Whether a window is to be seen there.
[[nodiscard]] bool isShown(NSWindow* window);
/// Another program puts a window there, above all docks.
void cover(NSRect frame);
/// 15 at first.
void setSystemVersion(int major);

// --- Other programs' windows.
struct ForeignWindow {
    CGPoint position{};
    CGSize size{};
    AXError error = kAXErrorSuccess;
};
struct ForeignApp {
    std::vector<ForeignWindow> windows;
    /// Answers nothing: each question costs its time-out.
    bool isHung = false;
    /// What it refuses, by the attribute's name, with "set " before it for the setting of one.
    std::map<std::string, AXError> errors;
    /// Attributes that it answers with a text, whatever they should be.
    std::set<std::string> nonsense;
    /// Questions asked so far.
    int questions = 0;
};
[[nodiscard]] std::map<int, ForeignApp>& foreignApps();
void setTrusted(bool isTrusted);
[[nodiscard]] bool isTrusted();

// --- Event taps.
/// Where the pointer is after the taps had it. Coordinates of Core Graphics: y downwards.
[[nodiscard]] CGPoint throughTaps(CGPoint at, bool isDragging);
/// Moves that a tap did not answer within a second, and that went on without it.
[[nodiscard]] std::size_t unansweredMoves();
/// As the system does with a tap that was too slow or lost its permission.
void disableTaps(CGEventType reason);
/// Whether a tap can be made, beyond the permission.
void allowTaps(bool allows);
[[nodiscard]] std::size_t eventTaps();
[[nodiscard]] std::size_t enabledTaps();

// --- Files and preferences.
/// The user's home folder, to be set before the program starts.
void setHome(const std::string& path);
[[nodiscard]] const std::string& home();
/// Nothing in it can be moved to the trash.
void lockFolder(const std::string& path);
[[nodiscard]] std::size_t fileWatches();
/// What is pinned in Apple's Dock: property list objects.
void setPersistentApps(id list);
/// A tile of that list.
[[nodiscard]] NSDictionary* dockTile(const App& app);

/// What the user does between the program's launch and its end.
void setScript(std::function<void()> script);
[[nodiscard]] bool reducesMotion();
void setReducesMotion(bool reduces);

template <class Body>
void guarded(const std::string& where, Body body) {
    @try {
        body();
    } @catch (NSException* exception) {
        noteEscaped(where, exception);
    }
}

}
