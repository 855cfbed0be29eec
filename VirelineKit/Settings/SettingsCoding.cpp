#include "Settings/SettingsCoding.hpp"

#include <nlohmann/json.hpp>

#include <cmath>
#include <limits>
#include <optional>
#include <tuple>
#include <utility>
#include <vector>

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

constexpr std::tuple appMembers{
    Member{"bundleID", &StoredApp::bundleID},
    Member{"name", &StoredApp::name},
    Member{"path", &StoredApp::path},
};

template <class Members, class Visitor>
void forEach(const Members& members, Visitor visit) {
    std::apply([&](const auto&... member) { (visit(member), ...); }, members);
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

template <class T>
bool assign(T& field, const Json& value) {
    const auto* typed = value.get_ptr<const T*>();
    if (typed != nullptr)
        field = *typed;
    return typed != nullptr;
}

bool assign(double& field, const Json& value) {
    if (!value.is_number())
        return false;
    field = value.get<double>();
    return true;
}

/// Also accepts an integer written as 1.0 or 1e2. The limits are exclusive, since integers beyond
/// 64 bits are read as doubles and may have been rounded to the limit.
bool assign(std::int64_t& field, const Json& value) {
    constexpr double limit = -static_cast<double>(std::numeric_limits<std::int64_t>::min());
    if (const auto* real = value.get_ptr<const double*>()) {
        if (*real <= -limit || *real >= limit || std::trunc(*real) != *real)
            return false;
    } else if (!value.is_number_integer() ||
               (value.is_number_unsigned() &&
                !std::in_range<std::int64_t>(value.get<std::uint64_t>()))) {
        return false;
    }
    field = value.get<std::int64_t>();
    return true;
}

template <class Enumeration>
bool assignNamed(Enumeration& field, const Json& value,
                 std::optional<Enumeration> (*named)(std::string_view) noexcept) {
    const auto* text = value.get_ptr<const std::string*>();
    const auto found = text == nullptr ? std::nullopt : named(*text);
    if (found)
        field = *found;
    return found.has_value();
}

bool assign(SourceMode& field, const Json& value) {
    return assignNamed(field, value, sourceMode);
}

bool assign(DockPosition& field, const Json& value) {
    return assignNamed(field, value, dockPosition);
}

/// Every field of an app is required.
bool assign(std::vector<StoredApp>& apps, const Json& value) {
    if (!value.is_array())
        return false;
    for (const Json& entry : value) {
        bool isComplete = entry.is_object();
        StoredApp& app = apps.emplace_back();
        forEach(appMembers, [&](const auto& member) {
            isComplete = isComplete && entry.contains(member.key) &&
                         assign(app.*member.field, entry[member.key]);
        });
        if (!isComplete)
            return false;
    }
    return true;
}

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
    const Json document = Json::parse(text, nullptr, false);
    if (!document.is_object())
        return std::unexpected{Error{document.is_discarded() ? "no JSON" : "no object at the top"}};
    Settings settings;
    std::string wrong;
    forEach(settingsMembers, [&](const auto& member) {
        const auto found = document.find(member.key);
        if (found != document.end() && !found->is_null() && !assign(settings.*member.field, *found))
            wrong = member.key;
    });
    if (!wrong.empty())
        return std::unexpected{Error{"\"" + wrong + "\" has the wrong type or no known value"}};
    return settings;
}

}
