#pragma once

#include <QByteArray>
#include <QList>
#include <QString>

/// The commands of the command line. Each takes the arguments behind its name and gives the process's exit code:
/// 0 when it is done, 1 when it failed, 2 when its arguments don't fit. A failure is one line on standard error.
namespace app {

int runScript(const QList<QByteArray>& arguments);
int newProject(const QList<QByteArray>& arguments);
int projectInfo(const QList<QByteArray>& arguments);
int openDesk(const QList<QByteArray>& arguments);
int showPalette(const QList<QByteArray>& arguments);
int drawing(const QList<QByteArray>& arguments);
int render(const QList<QByteArray>& arguments);
int preferences(const QList<QByteArray>& arguments);

/// How a command is called, for its help and for who misuses it.
struct Usage {
    const char* name;
    const char* arguments; ///< As they stand behind the name.
    const char* text;      ///< A sentence on what it does.
    const char* options;   ///< A line each, without those that every command has.
};

inline constexpr Usage runUsage = {
    "run", "[--project DIR [--read-only]] [--verbose] SCRIPT [ARGUMENT...]",
    "Runs a Python script with the module brindle at hand. What stands behind SCRIPT is the script's.",
    "  --project DIR  Opens this project for the script.\n"
    "  --read-only    Opens it also where another process has it open; it can be saved elsewhere only.\n"
    "  --verbose      Writes the lines for developers to standard error as well.\n"};
inline constexpr Usage deskUsage = {
    "desk", "[--new | --read-only] [--verbose] DIR [--run SCRIPT [ARGUMENT...]]",
    "Opens a project in a window with a script console and the log. What stands behind SCRIPT is the script's.",
    "  --new          Makes a new project.\n"
    "  --read-only    Opens it also where another process has it open; it can be saved elsewhere only.\n"
    "  --verbose      Shows the lines for developers as well.\n"
    "  --run SCRIPT   Runs a Python script when the window is open.\n"};
inline constexpr Usage newUsage = {"new", "DIR", "Makes a new project folder.", ""};
inline constexpr Usage infoUsage = {
    "info", "DIR", "Tells what is in a project or a template, also in one that another process has open.", ""};
inline constexpr Usage paletteUsage = {
    "palette", "[--import FILE.gpl] [--out FILE.png] [--export FILE.gpl] FILE",
    "Shows a palette: on a terminal as blocks of its colours, with ids and names.",
    "  --import FILE  Makes the palette of a GIMP palette; it must not be there yet.\n"
    "  --out FILE     Draws the palette as a picture instead.\n"
    "  --export FILE  Writes the solid colours, and those of gradients, as a GIMP palette.\n"};
inline constexpr Usage drawingUsage = {
    "drawing", "import|export [--palette NAME] FILE.svg PROJECT ELEMENT NAME",
    "Draws an SVG picture into a new drawing of an element, or writes a drawing as an SVG picture.",
    "  --palette NAME  Puts the picture's colours into this palette of the project; else one of the picture's name.\n"
    "                  Element and palette are made where there are none.\n"};
inline constexpr Usage renderUsage = {
    "render",
    "[--scene S] [--frames 1-60,72] [--node NODE] [--size 1920x1080] [--out 'frames/%04d.png']\n"
    "                 [--movie FILE.mp4|.gif|.apng] [--depth 16] [--threads N] [--resume] PROJECT",
    "Draws frames of a scene as image files, or as a movie.",
    "  --scene S       Draws this scene; else the first one.\n"
    "  --frames LIST   Draws these frames, as 1-60,72; else those from the scene's start to its stop frame.\n"
    "  --node NODE     Draws what this node shows; else the WRITE nodes that have a path, where neither --out nor\n"
    "                  --movie is given, and else the display.\n"
    "  --size WxH      Makes pictures of this size in pixels; else of the project's resolution.\n"
    "  --out PATTERN   Writes a frame there; %04d stands for its number, and the ending for the format. Where WRITE\n"
    "                  nodes don't say it, frames go to frames/%04d.png.\n"
    "  --movie FILE    Makes a movie by the program ffmpeg.\n"
    "  --depth BITS    Writes 8 bits a channel, as by default, or 16, where the format has both.\n"
    "  --threads N     Draws so many frames at a time; else one for each processor.\n"
    "  --resume        Leaves out frames whose pictures are there and whole.\n"};
inline constexpr Usage preferencesUsage = {
    "preferences", "[NAME | --set NAME VALUE | --reset NAME]",
    "Lists the preferences of the person, shows one, sets one, or gives one its default again.",
    "  --set NAME VALUE  Sets a preference. VALUE is read as its type; a new one is true or false, a whole number, a\n"
    "                    number, a colour as #rrggbb or #rrggbbaa, and else a text.\n"
    "  --reset NAME      Gives a preference its default.\n"};

constexpr int done = 0;
constexpr int failed = 1;
constexpr int misused = 2;

/// Writes "brindle: <sentence>" to standard error and gives the code.
int fail(const QString& sentence, int code);
void print(const QString& text);

} // namespace app
