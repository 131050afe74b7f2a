#pragma once
// A program's command line as data: from one description come the checks, the helps and the version.

#include <QHash>
#include <QString>
#include <QStringList>
#include <vector>

namespace consola {

/// What is wrong with a value, as the beginning of a sentence without its end ("\"x\" no es un número");
/// empty when it will do.
using Control = QString (*)(const QString &valor);

/// "--nombre VALOR", or "--nombre" alone for a switch.
struct Opcion {
    const char *nombre = "";
    const char *valor = "";     ///< what its value is called in the help; empty for a switch
    const char *texto = "";     ///< one line of the help
    bool obligatoria = false;   ///< the program (or the command) does nothing without it
    bool repetible = false;     ///< may come more than once, each with its value
    Control control = nullptr;  ///< judges its value
    const char *soloCon = "";   ///< another option, without which this one means nothing
    const char *excluyeA = "";  ///< other options, blanks between them: none can come beside this one
    const char *grupo = "";     ///< of those with the same group one has to come, and no other beside it
};

/// What stands without a name behind the command, in order.
struct Argumento {
    const char *nombre = "";    ///< as the help calls it: "CLAVE"
    const char *texto = "";     ///< what it is: "la clave de una operación"
    Control control = nullptr;  ///< judges it, without blanks around
    bool optativo = false;      ///< need not come; only the last one can be so
    bool repetible = false;     ///< may come more than once; only the last one can be so
};

struct Comando {
    const char *nombre = "";  ///< one word, or two ("catalogo cargar") for one of several on the same thing
    const char *texto = "";   ///< one line of the help
    std::vector<Argumento> argumentos = {};
    std::vector<Opcion> opciones = {};  ///< its own, beside the program's
    /// Judges the arguments together, each one good by itself: the beginning of a sentence as a Control's.
    QString (*control)(const QStringList &argumentos) = nullptr;
};

/// A program without commands takes options alone.
struct Programa {
    const char *nombre = "";
    QString texto;                      ///< what it does, one or two sentences
    std::vector<Opcion> opciones = {};  ///< those that every command takes
    std::vector<Comando> comandos = {};
    const char *nota = "";  ///< last lines of the general help; empty for none
};

enum class Que { Trabajar, Mostrar, MalUso };

/// A command line that was read.
struct Pedido {
    Que que = Que::MalUso;
    QString texto;    ///< to show (help or version, lines with their ends), or the sentence of a wrong use
    QString comando;  ///< empty in a program without commands
    QStringList argumentos;  ///< without blanks around
    QHash<QString, QStringList> opciones;

    /// Whether the option came.
    bool tiene(const char *opcion) const { return opciones.contains(QLatin1String(opcion)); }
    /// Its value; empty when it did not come.
    QString valor(const char *opcion) const { return valores(opcion).value(0); }
    /// Its values in the order they came.
    QStringList valores(const char *opcion) const { return opciones.value(QLatin1String(opcion)); }
};

/// The exit status of a wrong use, in every program.
constexpr int malUso = 2;

/// Reads a command line (its first text is the program's own name) by the description. Every program also
/// knows --ayuda (-h, --help), of the command when there is one, and --version (-v).
Pedido Leer(const Programa &programa, const QStringList &argumentos);

/// Writes the sentence of a wrong use to standard error, in one line that does nothing to a terminal, and
/// answers malUso.
int Negar(const QString &sentencia);

/// Writes what the pedido says, unless there is work to do: what is to be shown to standard output (status
/// 0), a wrong use to standard error (malUso). Answers the status.
int Contestar(const Pedido &pedido);

}  // namespace consola
