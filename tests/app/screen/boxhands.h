// tests/app/screen/boxhands.h - boxes that come up while something is done, read
// and answered.
#pragma once

#include <functional>
#include <string>

// What the error box says that work brings up. It is closed.
std::string complaint(const std::function<void()> &work);

// The question that work ends in: what it asks, "" if none came up. It is answered
// by a click on this button, or by Escape.
constexpr int ANSWERESCAPE = -1, ANSWERNO = 0, ANSWERYES = 11;
std::string questionanswer(int answer, const std::function<void()> &work);
