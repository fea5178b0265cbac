#include "audio/choice/EngineChoice.h"

#include "audio/ResultChecker.h"
#include "audio/engine/BuiltinEngine.h"
#include "audio/fmod/FmodEngine.h"

#include <QCoreApplication>
#include <QLoggingCategory>

namespace {

std::unique_ptr<AudioEngine> prepared(std::unique_ptr<FmodEngine> engine)
{
    const auto result = engine->prepare();
    const bool isUsable = result == AudioResult::Ok || result == AudioResult::NoDevice;
    if (!isUsable) {
        ResultChecker().check(*engine, result);
        throw QString::fromUtf8(engine->errorText(result));
    }
    return engine;
}

std::shared_ptr<const FmodLibrary> libraryFor(const EngineWish &wish)
{
    return FmodLibrary::find(wish.libraryFile, wish.gameFolder);
}

template<typename MakeFmod, typename MakeBuiltin>
MadeEngine firstThatWorks(EngineKind wished, MakeFmod makeFmod, MakeBuiltin makeBuiltin)
{
    if (wished == EngineKind::Builtin)
        return makeBuiltin();
    try {
        return makeFmod();
    } catch (const QString &reason) {
        const auto text = insteadText(reason);
        qWarning("%s", qUtf8Printable(text));
        return {makeBuiltin(), text};
    }
}

} // namespace

std::unique_ptr<AudioEngine> makeFmodEngine(const EngineWish &wish)
{
    return prepared(std::make_unique<FmodEngine>(libraryFor(wish), FmodOutput::Device));
}

std::unique_ptr<AudioEngine> makeFmodEngine(const EngineWish &wish, const QString &waveFile)
{
    return prepared(std::make_unique<FmodEngine>(libraryFor(wish), FmodOutput::WavFile, waveFile.toStdU16String()));
}

QString describeFmod(const EngineWish &wish)
{
    const auto library = libraryFor(wish);
    return QStringLiteral("FMOD %1: %2").arg(library->versionText(), library->file());
}

QString insteadText(const QString &reason)
{
    return QCoreApplication::translate("EngineChoice", "FMOD cannot be used, so the built-in engine plays. %1")
        .arg(reason);
}

void EngineChoice::wish(const EngineWish &wish)
{
    const std::lock_guard lock(mutex_);
    wish_ = wish;
}

EngineWish EngineChoice::wished() const
{
    const std::lock_guard lock(mutex_);
    return wish_;
}

MadeEngine EngineChoice::make() const
{
    const auto wish = wished();
    return firstThatWorks(
        wish.kind, [&] { return makeFmodEngine(wish); }, makeBuiltin_);
}

MadeEngine EngineChoice::makeForFile(const QString &waveFile) const
{
    const auto wish = wished();
    const auto makeBuiltin = [&] {
        return std::make_unique<BuiltinEngine>(EngineOutput::WavFile, waveFile.toStdU16String());
    };
    return firstThatWorks(
        waveFile.isEmpty() ? EngineKind::Builtin : wish.kind, [&] { return makeFmodEngine(wish, waveFile); },
        makeBuiltin);
}
