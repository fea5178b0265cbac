#pragma once

#include <future>
#include <string>
#include <vector>

// The names of the devices that a BuiltinEngine can play to, UTF-8; the system's default has none. Whoever does not
// wait for them may forget them. [any]
std::future<std::vector<std::string>> findSoundDevices();
