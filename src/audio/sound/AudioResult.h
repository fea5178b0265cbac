#pragma once

// How an operation on sound ended. Everything but Ok is a failure. [any]
enum class AudioResult {
    Ok,
    InvalidArgument,    // a number out of its range, or an operation that the output does not have
    NotInitialized,     // before initialize() or after release()
    NoDevice,           // there is no sound device: the engine runs on, paced, and nothing is heard
    DeviceLost,         // the sound device went away: as NoDevice
    DeviceNotAnswering, // the sound server hangs: as NoDevice
    UnknownGroup,       // not created, or released
    TooManyGroups,      // more than maxGroups
    TooManyVoices,      // more than maxVoices scheduled or sounding; those that sound are not touched
    QueueFull,          // more commands than the mixer took; the operation had no effect
    UnreadableSample,   // neither WAV, FLAC, Ogg Vorbis, Ogg Opus nor MP3, or damaged before its first frame
    SampleTooLong,      // longer than ten minutes, or than 256 MB when decoded
    CannotWrite,        // the wave file could not be created or not be written
    LibraryError,       // the library behind the engine refused; the engine's text says its number and why
};
