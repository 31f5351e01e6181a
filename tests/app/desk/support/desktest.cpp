#include "tests/app/desk/support/desktest.h"

#include "core/frame/scriptenginegenerator.h"

#include <QClipboard>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QGuiApplication>
#include <QTextBlock>
#include <QTimer>

using app::desk::MainWindow;
using app::desk::TextView;
using app::desk::Tone;

namespace {

using Interface = OMC::ScriptEngineGeneratorInterface;

constexpr int patience = 20'000; ///< In milliseconds; a machine may be busy.

} // namespace

DeskTest::DeskTest()
{
    Process& process = Process::instance();
    QString error;
    if (!process.session().projectManager()->createProject(path("walk"), error))
        ADD_FAILURE() << error.toStdString();
    Interface::loadProject(&process.session(), process.session().projectManager()->project());
    process.scripts().execute("import brindle\napp = brindle.application()\n");
    window = std::make_unique<MainWindow>(process.session(), process.console(), dialogs, MainWindow::Files());
    window->show();
    runEvents(0);
}

DeskTest::~DeskTest()
{
    window.reset();
    Process& process = Process::instance();
    process.console().discard();
    process.scripts().execute(R"(
for name in list(globals()):
    if not name.startswith('__') and name not in ('brindle', 'app'):
        del globals()[name]
globals().pop('name', None)
)");
    Interface::unloadProject(&process.session());
    process.session().projectManager()->closeProject();
}

void DeskTest::type(const QString& text)
{
    QTest::keyClicks(&input(), text);
    press(Qt::Key_Return);
}

void DeskTest::press(Qt::Key key, Qt::KeyboardModifiers modifiers)
{
    QTest::keyClick(&input(), key, modifiers);
}

void DeskTest::paste(const QString& text)
{
    QGuiApplication::clipboard()->setText(text);
    input().paste();
}

QString DeskTest::answerTo(const QString& statement)
{
    console().clear();
    type(statement);
    QStringList lines = output().split(u'\n');
    EXPECT_EQ(lines.takeFirst(), ">>> " + statement);
    EXPECT_EQ(lines.takeLast(), "");
    return lines.join(u'\n');
}

bool DeskTest::holds(const QString& expression)
{
    return Process::instance().scripts().execute(QString("if not (%1): raise SystemExit\n").arg(expression));
}

bool DeskTest::waitFor(const std::function<bool()>& condition)
{
    QElapsedTimer clock;
    clock.start();
    QEventLoop loop;
    QTimer turn;
    QObject::connect(&turn, &QTimer::timeout, &loop, [&] {
        if (condition() || clock.elapsed() > patience)
            loop.quit();
    });
    turn.start(5);
    loop.exec();
    return condition();
}

void DeskTest::runEvents(int milliseconds)
{
    QEventLoop loop;
    QTimer::singleShot(milliseconds, &loop, &QEventLoop::quit);
    loop.exec();
}

QString DeskTest::write(const QString& name, const QString& text) const
{
    QFile file(path(name));
    EXPECT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(text.toUtf8());
    return file.fileName();
}

std::optional<Tone> toneOf(const TextView& view, const QString& text)
{
    const QTextCursor found = view.document()->find(text, 0, QTextDocument::FindCaseSensitively);
    if (found.isNull())
        return std::nullopt;
    QTextCursor first(view.document());
    first.setPosition(found.selectionStart() + 1);
    const QColor color = first.charFormat().foreground().color();
    for (const Tone tone : {Tone::Plain, Tone::Input, Tone::Error, Tone::Debug}) {
        if (view.colorOf(tone) == color)
            return tone;
    }
    return std::nullopt;
}
