#include "app/Application.h"
#include "app/ArrivedFiles.h"
#include "app/GameLocation.h"
#include "app/MainWindow.h"
#include "app/Screenshot.h"
#include "app/recovery/DesktopSession.h"
#include "app/recovery/EndSignals.h"
#include "app/services/RunningProgram.h"
#include "assets/Instrument.h"
#include "audio/choice/EngineChoice.h"
#include "audio/engine/BuiltinEngine.h"
#include "audio/engine/SoundDevices.h"
#include "base/FilePaths.h"
#include "core/Track.h"
#include "language/Language.h"
#include "midi/SystemMidiInput.h"
#include "settings/Settings.h"
#include "ui/Dialogs.h"
#include "ui/SpokenWidget.h"
#include "ui/Theme.h"
#include "ui/manual/ManualWindow.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QStandardPaths>

#include <algorithm>
#include <exception>
#include <iterator>
#include <string_view>

namespace {

constexpr int exitCancelled = 1;

void showFatalError(Dialogs &dialogs, const QString &text)
{
    dialogs.message(nullptr, Dialogs::Severity::Critical, QStringLiteral("Kelvarion Composer"), text);
    QCoreApplication::exit();
}

// Files to open, what a session manager brings back, and for pictures of the window the file that it is saved to.
struct CommandLine
{
    QStringList files;
    QString journal;
    QString screenshot;
};

const auto journalOption = QStringLiteral("recover");

void nameProgram()
{
    QCoreApplication::setOrganizationDomain(QStringLiteral("kelvarion-composer.example"));
    QCoreApplication::setApplicationName(QStringLiteral("Kelvarion Composer"));
    QCoreApplication::setApplicationVersion(QStringLiteral(COMPOSER_VERSION));
}

CommandLine readCommandLine(const QCoreApplication &application)
{
    QCommandLineParser parser;
    parser.addHelpOption();
    parser.addVersionOption();
    QCommandLineOption screenshot(QStringLiteral("screenshot"), {}, QStringLiteral("file"));
    screenshot.setFlags(QCommandLineOption::HiddenFromHelp);
    QCommandLineOption journal(journalOption, {}, QStringLiteral("journal"));
    journal.setFlags(QCommandLineOption::HiddenFromHelp);
    parser.addOptions({screenshot, journal});
    parser.addPositionalArgument(QStringLiteral("files"), QStringLiteral("songs, ABC, MIDI and MML files to open"),
                                 QStringLiteral("[files...]"));
    parser.process(application);
    QStringList files;
    for (const auto &path : parser.positionalArguments())
        files += expandedWildcards(path);
    return {files, parser.value(journal), parser.value(screenshot)};
}

// Such a question needs no display.
bool asksAboutProgram(int argc, char *argv[])
{
    constexpr std::string_view questions[] = {"--version", "-v", "--help", "-h", "--help-all"};
    return std::any_of(argv + 1, argv + std::max(argc, 1), [&](const char *argument) {
        return std::find(std::begin(questions), std::end(questions), argument) != std::end(questions);
    });
}

int answerAboutProgram(int &argc, char *argv[])
{
    const QCoreApplication application(argc, argv);
    readCommandLine(application); // answers and ends the program
    return 0;
}

QString journalFolder()
{
    return QStandardPaths::writableLocation(QStandardPaths::AppDataLocation) + QStringLiteral("/journals");
}

EngineWish engineWish(const Settings &settings)
{
    const bool isFmod = settings.value(Settings::SoundEngine).toInt() == int(EngineKind::Fmod);
    return {isFmod ? EngineKind::Fmod : EngineKind::Builtin, settings.value(Settings::FmodFile).toString(),
            settings.value(Settings::RootPath).toString()};
}

// Whether the window that is there already opens them. Each of those that a session manager brings back is one of its
// own.
bool areHandedOver(const CommandLine &commandLine, const Settings &settings)
{
    return !qGuiApp->isSessionRestored() && commandLine.journal.isEmpty() && commandLine.screenshot.isEmpty() &&
           !commandLine.files.isEmpty() && settings.value(Settings::OpenInRunning).toBool() &&
           RunningProgram::handOver(RunningProgram::placeOfUser(), commandLine.files);
}

DesktopSession::Window keeperOf(MainWindow &window)
{
    const auto restart = [&window] {
        const auto [journal, files] = window.restart();
        return (journal.isEmpty() ? QStringList() : QStringList{QStringLiteral("--") + journalOption, journal}) + files;
    };
    return {[&window] { return window.keepForLater(); }, [&window] { return window.mayLeave(); }, restart};
}

// Until the window is closed, or the system or the desktop ends the program.
int show(MainWindow &window, Application &application)
{
    DesktopSession desktop(application, keeperOf(window));
    QObject::connect(&window.session(), &SongSession::changed, &desktop, &DesktopSession::setChanged);
    application.setMayEnd([&desktop] { return desktop.isKept(); });
    onEndSignals(window, [&window] {
        window.keepForLater();
        QCoreApplication::exit();
    });
    const int result = QCoreApplication::exec();
    application.setMayEnd({});
    return result;
}

int runWindow(Application &application, ArrivedFiles &arrived, Settings &settings, Dialogs &dialogs,
              const CommandLine &commandLine)
{
    const bool isPicture = !commandLine.screenshot.isEmpty();
    const auto control = std::make_shared<OutputControl>(findSoundDevices);
    const auto choice = std::make_shared<EngineChoice>([isPicture, control]() -> std::unique_ptr<AudioEngine> {
        return isPicture ? std::make_unique<BuiltinEngine>(HeardOutput::Paced)
                         : std::make_unique<BuiltinEngine>(HeardOutput::Device, control);
    });
    const auto choose = [choice, &settings] { choice->wish(engineWish(settings)); };
    choose();
    QObject::connect(&settings, &Settings::settingChanged, choose);
    const WindowServices services{settings,
                                  dialogs,
                                  [choice] { return choice->make(); },
                                  [choice](const QString &file) { return choice->makeForFile(file); },
                                  UpdateChecker::releaseAddress(),
                                  isPicture ? QString() : journalFolder(),
                                  control,
                                  isPicture ? MidiInputFactory() : systemMidiInput};
    MainWindow window(services);
    if (isPicture) // whatever the screen
        window.resize(1180, 760);
    window.show();
    window.restore({commandLine.journal, commandLine.files});
    if (commandLine.journal.isEmpty() && !(application.isSessionRestored() && !commandLine.files.isEmpty()))
        window.offerRecovery();
    arrived.setWindow(&window);
    if (isPicture)
        saveScreenshot(window, commandLine.screenshot);
    return show(window, application);
}

} // namespace

int main(int argc, char *argv[])
{
    nameProgram();
    if (asksAboutProgram(argc, argv))
        return answerAboutProgram(argc, argv);
    qRegisterMetaType<Track>("Track");
    qRegisterMetaType<Instrument>("Instrument");
#if QT_VERSION < QT_VERSION_CHECK(6, 0, 0)
    QCoreApplication::setAttribute(Qt::AA_EnableHighDpiScaling);
    QCoreApplication::setAttribute(Qt::AA_UseHighDpiPixmaps);
#endif
    // A screen at 150 % shows the windows so large, and not twice as large.
    QGuiApplication::setHighDpiScaleFactorRoundingPolicy(Qt::HighDpiScaleFactorRoundingPolicy::PassThrough);
    Application application(argc, argv);
    QGuiApplication::setDesktopFileName(QStringLiteral("example.kelvarion_composer.Composer"));
    const auto commandLine = readCommandLine(application);
    speakWidgets();
    ManualKey manualKey;
    QCoreApplication::instance()->installEventFilter(&manualKey);

    DesktopDialogs dialogs;
    try {
        Settings settings(Settings::defaultFile());
        if (areHandedOver(commandLine, settings))
            return 0;
        ArrivedFiles arrived;
        RunningProgram program(RunningProgram::placeOfUser(), RunningProgram::lockOfUser());
        QObject::connect(&program, &RunningProgram::filesArrived, &arrived, &ArrivedFiles::add);
        if (commandLine.screenshot.isEmpty())
            program.listen(); // unless another one does
        const auto takeWanted = [&] { arrived.add(application.takeWantedFiles()); };
        QObject::connect(&application, &Application::filesWanted, &arrived, takeWanted);
        takeWanted();
        Language::start(settings.value(Settings::Language).toString());
        startTheme(settings.value(Settings::DarkPalette).toBool() ? Theme::Dark : Theme::Light);
        if (!locateGame(settings, dialogs, driveRoots()))
            return exitCancelled;
        return runWindow(application, arrived, settings, dialogs, commandLine);
    } catch (const QString &error) {
        showFatalError(dialogs, QCoreApplication::translate("main", "A fatal error occured:\n%1").arg(error));
    } catch (...) {
        showFatalError(dialogs, QCoreApplication::translate("main", "An unknown fatal error ocurred"));
    }
    return 0;
}
