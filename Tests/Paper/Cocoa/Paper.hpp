/// The paper world as tests control it: displays are plugged in, applications start, the pointer
/// moves, and time passes only on request. The program's requests to the system are recorded.
#pragma once

#include "Cocoa/Extensions.hpp"
#include "Runtime/Runtime.hpp"

#include <functional>
#include <map>
#include <set>
#include <string>
#include <vector>

namespace paper {

/// Calls `body` as AppKit's loop calls the program: an escaping exception is caught here and
/// recorded.
template <class Body>
void guarded(const std::string& where, Body body);
void noteEscaped(const std::string& where, NSException* exception);
/// Exceptions that escaped from the program, as "where: reason".
[[nodiscard]] const std::vector<std::string>& escapedExceptions();

// --- Time.
[[nodiscard]] double now();
/// Runs everything that is due now.
void drain();
/// Advances the time, serving timers, display links and animations on the way.
void advance(double seconds);
/// Blocks the main thread for this long: time passes, but nothing is served.
void stall(double seconds);
/// Called on each stall.
void onStall(std::function<void()> meanwhile);
[[nodiscard]] std::size_t pendingTimers();
/// While held, blocks submitted to background queues are not run.
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
/// Replaces the displays and notifies the program.
void plug(const std::vector<Display>& displays);
/// Calls Core Graphics' callback; does not run the loop.
void announceMainDisplay(unsigned number);

// --- Applications.
struct App {
    std::string bundleID;
    std::string name;
    int processIdentifier = 0;
    std::string path;
};
/// Starts an app without announcing it, like those that ran before the program.
NSRunningApplication* run(const App& app);
NSRunningApplication* launch(const App& app);
void quit(int processIdentifier);
/// Ends an app and announces that while the workspace still lists it.
void quitButStayListed(int processIdentifier);
/// The user hides all programs except the frontmost.
void hideOthers();
/// The system refuses activation requests, as it may since version 14.
void refuseActivation(bool refuses);
/// The user opens the program again while it is running.
void reopen();
/// Makes the workspace find the app although it is not running.
void install(const App& app);
/// Makes registering and removing the login item fail with this code; 0 for success.
void refuseLoginItem(int code);
/// The program's requests to the system, in order: "open /Applications/Notes.app".
[[nodiscard]] std::vector<std::string>& requests();

// --- Pointer and keyboard, in NSScreen's coordinates.
void movePointer(NSPoint to);
void press(bool control = false);
void release();
void rightPress();
/// The user drags a slider to this value and releases it.
void dragSlider(NSSlider* slider, double value);
void click(NSPoint at, bool control = false);
/// A click that happened this long ago, and that the main thread only handles now.
void clickEarlier(NSPoint at, double seconds);
/// The button is released without any window being told.
void loseRelease();
[[nodiscard]] NSUInteger pressedButtons();
void setEscapeDown(bool isDown);
[[nodiscard]] bool isEscapeDown();
/// Begins dragging files from another program, with the button held.
void beginFileDrag(const std::vector<std::string>& paths, NSDragOperation allowed);
/// Returns whether the window below accepted the drop.
bool dropFiles();
void cancelFileDrag();

// --- Windows.
[[nodiscard]] NSWindow* windowTitled(const std::string& beginning);
void display();
/// Chooses the entry of each popped-up menu while it is open; nil closes it.
void answerMenus(std::function<NSMenuItem*(NSMenu*)> answer);
[[nodiscard]] NSMenuItem* itemTitled(NSMenu* menu, const std::string& title);
/// Opens the status item's menu and chooses this entry; returns false if there is none.
bool chooseStatusItem(const std::string& title);
/// Status items, event monitors, display links and windows that still exist.
[[nodiscard]] std::vector<std::string> leftovers();

/// The drawing calls for the image drawn last, in order: "draw trash.fill".
[[nodiscard]] std::vector<std::string>& drawing();

/// The user switches to another desktop, or to another program's full screen.
void showSpace(int number, bool isFullScreen = false);
/// Whether the window is visible there.
[[nodiscard]] bool isShown(NSWindow* window);
/// Another program shows a window in this frame, above all docks.
void cover(NSRect frame);
/// Initially 15.
void setSystemVersion(int major);

// --- Other programs' windows.
struct ForeignWindow {
    CGPoint position{};
    CGSize size{};
    AXError error = kAXErrorSuccess;
    std::string title{};
    bool isMinimized = false;
};
struct ForeignApp {
    /// Front to back, and the first is the main window.
    std::vector<ForeignWindow> windows;
    bool isFrontmost = false;
    /// Whether a text comes first in its list of windows.
    bool listsNonsense = false;
    /// How long each call takes, in seconds.
    double delay = 0;
    /// Does not respond: each call runs into its timeout.
    bool isHung = false;
    /// Calls that fail, by the attribute's name, preceded by "set " for setters.
    std::map<std::string, AXError> errors;
    /// Attributes that return a text, whatever type they should have.
    std::set<std::string> nonsense;
    /// Number of calls so far.
    int questions = 0;
};
[[nodiscard]] std::map<int, ForeignApp>& foreignApps();
/// Whether the system fails to make elements for programs.
void makeNoElements(bool fails);
void setTrusted(bool isTrusted);
[[nodiscard]] bool isTrusted();

// --- Event taps.
/// The pointer's position after the taps have processed the move, in Core Graphics coordinates: y
/// downwards.
[[nodiscard]] CGPoint throughTaps(CGPoint at, bool isDragging);
/// Moves that a tap did not answer within a second, and that were passed on regardless.
[[nodiscard]] std::size_t unansweredMoves();
/// As the system does to a tap that was too slow or lost its permission.
void disableTaps(CGEventType reason);
/// Whether creating a tap succeeds, given the permission.
void allowTaps(bool allows);
/// The system takes a new tap back before anything serves it.
void takeTapsBack(bool takes);
[[nodiscard]] std::size_t eventTaps();
[[nodiscard]] std::size_t enabledTaps();

// --- Files and preferences.
/// The user's home folder; must be set before the program starts.
void setHome(const std::string& path);
[[nodiscard]] const std::string& home();
/// Makes moving the folder's content to the trash fail.
void lockFolder(const std::string& path);
[[nodiscard]] std::size_t fileWatches();
/// The list of pinned apps in Apple's Dock, as property list objects.
void setPersistentApps(id list);
/// A tile in that list.
[[nodiscard]] NSDictionary* dockTile(const App& app);

/// The user's actions between the program's launch and its end.
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
