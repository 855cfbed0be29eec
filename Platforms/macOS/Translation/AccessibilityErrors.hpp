/// The error codes of the Accessibility interface.
#pragma once

namespace vireline::macos::AccessibilityErrors {

inline constexpr int success = 0;
inline constexpr int failure = -25200;
inline constexpr int illegalArgument = -25201;

/// A short phrase for the log.
[[nodiscard]] constexpr const char* describe(int code) {
    switch (code) {
    case success:
        return "no error";
    case failure:
        return "accessibility call failed";
    case illegalArgument:
        return "illegal argument";
    case -25202:
        return "element is gone";
    case -25203:
        return "observer is gone";
    case -25204:
        return "no answer from the app";
    case -25205:
        return "attribute unsupported";
    case -25206:
        return "action unsupported";
    case -25207:
        return "notification unsupported";
    case -25208:
        return "not implemented by the app";
    case -25209:
        return "notification already registered";
    case -25210:
        return "notification not registered";
    case -25211:
        return "accessibility is not permitted";
    case -25212:
        return "attribute has no value";
    case -25213:
        return "parameterized attribute unsupported";
    case -25214:
        return "not enough precision";
    default:
        return "unknown accessibility error";
    }
}

}
