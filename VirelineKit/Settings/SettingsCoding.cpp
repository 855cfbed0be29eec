#include "Settings/SettingsCoding.hpp"

#include <nlohmann/json.hpp>

#include <cmath>
#include <exception>
#include <limits>
#include <tuple>
#include <utility>
#include <variant>

namespace vireline::SettingsCoding {
namespace {

using Json = nlohmann::json;

/// A key of a JSON object and the corresponding field of `Record`.
template <class Record, class T>
struct Member {
    const char* key;
    T Record::* field;
};

constexpr std::tuple settingsMembers{
    Member{"schemaVersion", &Settings::schemaVersion},
    Member{"sourceMode", &Settings::sourceMode},
    Member{"manualApps", &Settings::manualApps},
    Member{"iconSize", &Settings::iconSize},
    Member{"hideOverFullScreen", &Settings::hideOverFullScreen},
    Member{"position", &Settings::position},
    Member{"autoHide", &Settings::autoHide},
    Member{"magnificationEnabled", &Settings::magnificationEnabled},
    Member{"magnification", &Settings::magnification},
    Member{"anchorAppleDock", &Settings::anchorAppleDock},
    Member{"openOnThisDisplay", &Settings::openOnThisDisplay},
    Member{"summonOnClick", &Settings::summonOnClick},
    Member{"fillOnDoubleClick", &Settings::fillOnDoubleClick},
    Member{"onboardingCompleted", &Settings::onboardingCompleted},
};

/// An app while it is being read. Every field is required.
struct PartialApp {
    std::optional<std::string> bundleID;
    std::optional<std::string> name;
    std::optional<std::string> path;
};

constexpr std::tuple appMembers{
    Member{"bundleID", &PartialApp::bundleID},
    Member{"name", &PartialApp::name},
    Member{"path", &PartialApp::path},
};

template <class Members, class Visitor>
void forEach(const Members& members, Visitor visit) {
    std::apply([&](const auto&... member) { (visit(member), ...); }, members);
}

template <class Members, class Predicate>
bool anyOf(const Members& members, Predicate holds) {
    return std::apply([&](const auto&... member) { return (holds(member) || ...); }, members);
}

template <class T>
Json encoded(const T& value) {
    return value;
}

Json encoded(SourceMode value) {
    return rawValue(value);
}

Json encoded(DockPosition value) {
    return rawValue(value);
}

Json encoded(const std::vector<StoredApp>& apps) {
    Json list = Json::array();
    for (const StoredApp& app : apps)
        list.push_back({{"bundleID", app.bundleID}, {"name", app.name}, {"path", app.path}});
    return list;
}

/// A JSON value that is neither an array nor an object. Integers beyond 64 bits become doubles.
using Scalar = std::variant<std::nullptr_t, bool, std::int64_t, double, std::string>;

template <class T>
bool assign(T& field, Scalar& value) {
    T* typed = std::get_if<T>(&value);
    if (typed == nullptr)
        return false;
    field = std::move(*typed);
    return true;
}

bool assign(double& field, Scalar& value) {
    if (const auto* integer = std::get_if<std::int64_t>(&value)) {
        field = static_cast<double>(*integer);
        return true;
    }
    return assign<double>(field, value);
}

/// Also accepts an integer written as 1.0 or 1e2. The limits are exclusive, since integers beyond
/// them have been rounded to the limit.
bool assign(std::int64_t& field, Scalar& value) {
    constexpr double limit = -static_cast<double>(std::numeric_limits<std::int64_t>::min());
    if (const auto* real = std::get_if<double>(&value)) {
        if (*real <= -limit || *real >= limit || std::trunc(*real) != *real)
            return false;
        field = static_cast<std::int64_t>(*real);
        return true;
    }
    return assign<std::int64_t>(field, value);
}

bool assign(std::optional<std::string>& field, Scalar& value) {
    return assign(field.emplace(), value);
}

template <class Enumeration>
bool assignNamed(Enumeration& field, const Scalar& value,
                 std::optional<Enumeration> (*named)(std::string_view) noexcept) {
    const auto* text = std::get_if<std::string>(&value);
    const auto found = text == nullptr ? std::nullopt : named(*text);
    if (found)
        field = *found;
    return found.has_value();
}

bool assign(SourceMode& field, Scalar& value) {
    return assignNamed(field, value, sourceMode);
}

bool assign(DockPosition& field, Scalar& value) {
    return assignNamed(field, value, dockPosition);
}

/// A scalar is never a list.
bool assign(std::vector<StoredApp>&, Scalar&) {
    return false;
}

/// A SAX handler for nlohmann's parser. It builds only the record itself, so that ignored values
/// take no memory, however deep or large they are.
class Reader {
public:
    bool null() { return scalar(nullptr); }
    bool boolean(bool value) { return scalar(value); }
    bool number_integer(std::int64_t value) { return scalar(value); }
    bool number_unsigned(std::uint64_t value) {
        if (std::in_range<std::int64_t>(value))
            return scalar(static_cast<std::int64_t>(value));
        return scalar(static_cast<double>(value));
    }
    bool number_float(double value, const std::string&) { return scalar(value); }
    bool string(std::string& value) { return scalar(std::move(value)); }
    bool binary(const Json::binary_t&) { return fail("bytes where JSON has none"); }

    bool start_object(std::size_t) {
        if (isIgnoring())
            return descend();
        switch (place_) {
        case Place::document:
            place_ = Place::settings;
            return true;
        case Place::apps:
            place_ = Place::app;
            app_ = {};
            return true;
        case Place::settings:
        case Place::app:
            break;
        }
        return failAtValue();
    }

    bool end_object() {
        if (ignoredDepth_ > 0)
            return ascend();
        if (place_ != Place::app)
            return true;
        place_ = Place::apps;
        if (!app_.bundleID || !app_.name || !app_.path)
            return fail("an entry of \"manualApps\" is incomplete");
        settings_.manualApps.push_back(
            {std::move(*app_.bundleID), std::move(*app_.name), std::move(*app_.path)});
        return true;
    }

    bool start_array(std::size_t) {
        if (isIgnoring())
            return descend();
        if (place_ != Place::settings || key_ != "manualApps")
            return failAtValue();
        place_ = Place::apps;
        settings_.manualApps.clear();
        return true;
    }

    bool end_array() {
        if (ignoredDepth_ > 0)
            return ascend();
        place_ = Place::settings;
        return true;
    }

    bool key(std::string& name) {
        if (ignoredDepth_ > 0)
            return true;
        key_ = std::move(name);
        const auto isCurrent = [this](const auto& member) { return key_ == member.key; };
        isKnown_ =
            place_ == Place::app ? anyOf(appMembers, isCurrent) : anyOf(settingsMembers, isCurrent);
        return true;
    }

    bool parse_error(std::size_t position, const std::string&, const Json::exception&) {
        return fail("no JSON at byte " + std::to_string(position));
    }

    /// The result, if parsing succeeded.
    [[nodiscard]] Settings& settings() { return settings_; }
    [[nodiscard]] std::string& failure() { return failure_; }

private:
    enum class Place { document, settings, apps, app };

    bool fail(std::string description) {
        failure_ = std::move(description);
        return false;
    }

    bool failAtValue() {
        switch (place_) {
        case Place::document:
            return fail("no object at the top");
        case Place::apps:
            return fail("an entry of \"manualApps\" is no object");
        case Place::settings:
        case Place::app:
            break;
        }
        return fail("\"" + key_ + "\" has the wrong type or no known value");
    }

    /// Whether the next value belongs to an unknown key.
    [[nodiscard]] bool isIgnoring() const {
        return ignoredDepth_ > 0 ||
               (!isKnown_ && (place_ == Place::settings || place_ == Place::app));
    }

    bool descend() {
        ++ignoredDepth_;
        return true;
    }

    bool ascend() {
        --ignoredDepth_;
        return true;
    }

    bool scalar(Scalar value) {
        if (isIgnoring())
            return true;
        bool isRead = false;
        if (place_ == Place::settings) {
            isRead = anyOf(settingsMembers, [&](const auto& member) {
                return key_ == member.key && setOrReset(member, value);
            });
        } else if (place_ == Place::app) {
            isRead = anyOf(appMembers, [&](const auto& member) {
                return key_ == member.key && assign(app_.*member.field, value);
            });
        }
        return isRead || failAtValue();
    }

    template <class T>
    bool setOrReset(const Member<Settings, T>& member, Scalar& value) {
        if (!std::holds_alternative<std::nullptr_t>(value))
            return assign(settings_.*member.field, value);
        settings_.*member.field = Settings{}.*member.field;
        return true;
    }

    Settings settings_;
    PartialApp app_;
    Place place_ = Place::document;
    std::string key_;
    bool isKnown_ = false;
    std::size_t ignoredDepth_ = 0;
    std::string failure_;
};

}

std::string encode(const Settings& settings) {
    Json object = Json::object();
    forEach(settingsMembers,
            [&](const auto& member) { object[member.key] = encoded(settings.*member.field); });
    return object.dump(4, ' ', false, Json::error_handler_t::replace);
}

std::expected<Settings, Error> decode(std::string_view text) {
    // The library treats a zero byte as the end of the text, so a file whose end was overwritten
    // with zeroes would count as complete.
    if (text.contains('\0'))
        return std::unexpected{Error{"zero byte in the text"}};
    Reader reader;
    try {
        if (Json::sax_parse(text.begin(), text.end(), &reader))
            return std::move(reader.settings());
    } catch (const std::exception& exception) {
        return std::unexpected{Error{exception.what()}};
    }
    return std::unexpected{Error{std::move(reader.failure())}};
}

}
