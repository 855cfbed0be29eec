#include "Toolkit/QtApplication.hpp"

#include <QEvent>
#include <QKeySequence>
#include <QSessionManager>
#include <QWidget>
#include <cctype>
#include <limits>

namespace vireline::xdg {
namespace {

/// The desktop's standard shortcut for the action, which may differ from the one that the menu
/// names.
QKeySequence::StandardKey standardKey(StandardAction action) {
    switch (action) {
    case StandardAction::terminate:
        return QKeySequence::Quit;
    case StandardAction::undo:
        return QKeySequence::Undo;
    case StandardAction::redo:
        return QKeySequence::Redo;
    case StandardAction::cut:
        return QKeySequence::Cut;
    case StandardAction::copy:
        return QKeySequence::Copy;
    case StandardAction::paste:
        return QKeySequence::Paste;
    case StandardAction::selectAll:
        return QKeySequence::SelectAll;
    }
    return QKeySequence::UnknownKey;
}

/// The menu's own shortcut: Ctrl, plus Shift for an upper-case letter.
QKeySequence ownKey(char keyEquivalent) {
    const auto letter = static_cast<unsigned char>(keyEquivalent);
    const int key = std::toupper(letter);
    const Qt::KeyboardModifiers shift =
        std::isupper(letter) != 0 ? Qt::ShiftModifier : Qt::NoModifier;
    return QKeySequence{QKeyCombination{Qt::ControlModifier | shift, static_cast<Qt::Key>(key)}};
}

/// The slot that Qt's editing widgets have for the action; null for actions that concern the whole
/// program.
const char* editingSlot(StandardAction action) {
    switch (action) {
    case StandardAction::terminate:
        return nullptr;
    case StandardAction::undo:
        return "undo";
    case StandardAction::redo:
        return "redo";
    case StandardAction::cut:
        return "cut";
    case StandardAction::copy:
        return "copy";
    case StandardAction::paste:
        return "paste";
    case StandardAction::selectAll:
        return "selectAll";
    }
    return nullptr;
}

void edit(const char* slot) {
    QWidget* focus = QApplication::focusWidget();
    if (focus == nullptr)
        return;
    const QByteArray signature = QByteArray{slot} + "()";
    if (focus->metaObject()->indexOfSlot(signature.constData()) >= 0)
        QMetaObject::invokeMethod(focus, slot, Qt::DirectConnection);
}

/// Calls its function when it receives its one event.
class Starter : public QObject {
public:
    explicit Starter(std::function<void()> start) : start_(std::move(start)) {}

private:
    bool event(QEvent* event) override {
        if (event->type() != QEvent::User)
            return QObject::event(event);
        start_();
        return true;
    }

    std::function<void()> start_;
};

}

QtApplication::QtApplication(QApplication& qt, SecondStarts& secondStarts)
    : qt_(qt), secondStarts_(secondStarts) {
    // The autostart folder starts the program at login, so a session manager that restored it as
    // well would start it twice.
    QObject::connect(&qt_, &QGuiApplication::saveStateRequest, &qt_, [](QSessionManager& session) {
        session.setRestartHint(QSessionManager::RestartNever);
    });
}

void QtApplication::installMainMenu(const MainMenu& menu) {
    actions_.clear();
    for (const MainMenuSubmenu& submenu : menu.submenus) {
        for (const auto& entry : submenu.entries) {
            if (const auto* command = std::get_if<MainMenuCommand>(&entry))
                add(*command);
        }
    }
}

void QtApplication::add(const MainMenuCommand& command) {
    auto action = std::make_unique<QAction>(QString::fromStdString(command.title));
    const QList<QKeySequence> bindings = QKeySequence::keyBindings(standardKey(command.action));
    action->setShortcuts(bindings.isEmpty() ? QList{ownKey(command.keyEquivalent)} : bindings);
    const char* slot = editingSlot(command.action);
    QObject::connect(action.get(), &QAction::triggered, action.get(), [this, slot] {
        if (slot == nullptr)
            terminate();
        else
            edit(slot);
    });
    actions_.push_back(std::move(action));
}

QList<QAction*> QtApplication::mainMenuActions() const {
    QList<QAction*> actions;
    for (const auto& action : actions_)
        actions.append(action.get());
    return actions;
}

int QtApplication::run(std::function<void()> onFinishedLaunching) {
    if (isTerminated_)
        return 0;
    Starter starter{std::move(onFinishedLaunching)};
    // NOLINTNEXTLINE(cppcoreguidelines-owning-memory): Qt deletes it
    QCoreApplication::postEvent(&starter, new QEvent{QEvent::User},
                                std::numeric_limits<int>::max());
    return QApplication::exec();
}

void QtApplication::terminate() {
    isTerminated_ = true;
    // Not quit(), which any open window may veto.
    QCoreApplication::exit(0);
}

std::int64_t QtApplication::processIdentifier() const {
    return QCoreApplication::applicationPid();
}

Subscription QtApplication::observeSecondStart(std::function<void()> handler) {
    return secondStarts_.observe(std::move(handler));
}

}
