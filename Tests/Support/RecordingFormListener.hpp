/// Writes down what the user does in a form.
#pragma once

#include "Platform/ProgramWindows.hpp"

#include <utility>
#include <vector>

namespace vireline::test {

class RecordingFormListener final : public FormListener {
public:
    void formChanged(SettingsField field, const FormValue& value) override {
        changes.emplace_back(field, value);
    }
    void formStatusButtonPressed(SettingsField field) override { pressed.push_back(field); }

    std::vector<std::pair<SettingsField, FormValue>> changes;
    std::vector<SettingsField> pressed;
};

}
