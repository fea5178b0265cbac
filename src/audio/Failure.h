#pragma once

#include <QString>

#include <functional>

// Runs the action and gives the text of the exception that ended it; empty when it ended well. An Interrupted passes
// through. [any]
QString failureOf(const std::function<void()> &action);
