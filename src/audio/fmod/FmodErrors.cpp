#include "audio/fmod/FmodApi.h"

#include <map>
#include <mutex>
#include <string>

namespace {

// By the results' numbers.
constexpr std::array words{
    "no error",
    "this object cannot do that",
    "no channel could be allocated",
    "channel now plays another sound",
    "DMA failed",
    "bad DSP connection, e.g. a cycle",
    "skip processing",
    "DSP or matrix format does not fit",
    "DSP is already in the network",
    "DSP not found",
    "DSP belongs to the system",
    "would be silent",
    "not for this DSP type",
    "file not loaded",
    "no seeking here",
    "medium removed while reading",
    "file ended too early",
    "chunk ended while reading",
    "no such file",
    "format not supported",
    "caller's version is not the library's",
    "other HTTP error",
    "forbidden, or needs a login",
    "proxy needs a login",
    "HTTP server error",
    "HTTP timed out",
    "not initialised for this",
    "not allowed after init",
    "internal error",
    "NaN, infinite or denormal",
    "handle not (or no longer) valid",
    "invalid argument",
    "invalid seek position",
    "speaker not in this mode",
    "sync point of another sound",
    "wrong thread",
    "vectors not unit or not perpendicular",
    "sound group's limit reached",
    "out of memory or resources",
    "memory cannot be used in place",
    "only for 3D sounds",
    "needs hardware support",
    "host not reached",
    "other socket error",
    "URL not resolved",
    "non-blocking socket would wait",
    "sound or connection not ready yet",
    "output device is in use",
    "no hardware buffer",
    "sound driver call failed",
    "device lacks the needed format",
    "output device not initialised",
    "no sound device; no-sound output chosen",
    "plug-in failed",
    "output, DSP or codec not there",
    "plug-in lacks a resource",
    "plug-in of an unsupported SDK",
    "recording device not initialised",
    "a parent group owns the reverb",
    "no such reverb instance",
    "subsounds there, or missing, wrongly",
    "subsound has another parent",
    "shared subsound cannot be moved",
    "no such tag",
    "more input channels than allowed",
    "text cut to the buffer",
    "not implemented",
    "before init",
    "object does not support it",
    "file format version not supported",
    "bank is loaded already",
    "live update is in use",
    "live update: data differ",
    "live update timed out",
    "no such event, bus or the like",
    "studio system not initialised",
    "object is not loaded",
    "invalid text",
    "locked already",
    "not locked",
    "recording device was removed",
    "sound is too long",
};

std::string textWithNumber(fmodlib::Result result)
{
    const bool isKnown = result >= 0 && std::size_t(result) < words.size();
    return std::string(isKnown ? words[std::size_t(result)] : "unknown error") + " (" + std::to_string(result) + ")";
}

} // namespace

const char *fmodlib::textOf(Result result)
{
    static std::mutex mutex;
    static std::map<Result, std::string> texts; // its strings stay where they are
    const std::lock_guard lock(mutex);
    const auto text = texts.find(result);
    return (text != texts.end() ? text : texts.emplace(result, textWithNumber(result)).first)->second.c_str();
}
