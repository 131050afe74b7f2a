#pragma once
// The seam to the user. Modules never open a window: the desktop installs Qt dialogs, the batch program a
// script of answers, tests a recorder.

#include <QString>
#include <QStringList>
#include <functional>
#include <optional>

#include "frame/paper/table.h"

enum class Icono { Ninguno, Informacion, Exclamacion, Critico, Pregunta };

struct Mensaje {
    QString texto;
    QString titulo;  ///< empty: the program's name
    Icono icono = Icono::Ninguno;
    bool modalDeSistema = false;
};

/// A Yes/No question. The default button is Yes unless told.
struct Pregunta {
    QString texto;
    QString titulo;
    Icono icono = Icono::Pregunta;
    bool porDefectoNo = false;
};

/// A modal input box that limits the length (in characters).
struct Entrada {
    QString titulo;
    QString texto;
    int maximo = 255;
    QString inicial;
};

/// A pick from a list; `filas` are shown, the answer is an index.
struct Eleccion {
    /// Which list shows it: a plain one, the code list with its search box (FrmListado), or the options of a
    /// suffix family (FrmCargaSufijos).
    enum class Tipo { General, Codigos, Sufijos };
    QString titulo;
    QStringList filas;
    int inicial = 0;  ///< -1: none chosen at the start
    Tipo tipo = Tipo::General;
};

/// A question with Yes, No and a group of options beside it (the automotive question).
struct PreguntaConOpciones {
    QString texto;
    QString titulo;
    QString marco;         ///< caption of the group
    QStringList opciones;  ///< the first is chosen at the start
    QString si;            ///< caption of Yes, with its mnemonic
    QString no;
};
struct RespuestaConOpciones {
    bool si = false;
    int opcion = 0;
};

/// A read-only text in a fixed-pitch font, shown modal (FrmMostrarDatos), or a list of lines (`lineas`).
struct Informe {
    QString titulo;
    QString texto;
    bool comoLista = false;  ///< one list row a line (Frm_ComprobacionErrores)
};

/// A file to be written. One that is there is asked about by whoever writes it.
struct PedidoDeArchivo {
    QString titulo;
    QString inicial;  ///< the whole path that is offered
    QString filtros;  ///< "Documentos XML (*.xml);;..."; the chosen one, the first at the start, gives a name
                      ///< its missing end
};

/// A mark of a long run.
struct Avance {
    enum class Tipo { PasoCorriendo, PasoHecho, MostrarPaso, Barra, Etiqueta };
    Tipo tipo = Tipo::Etiqueta;
    int paso = 0;     ///< for the steps: their index
    QString control;  ///< for bars and labels: pbSUF, Pb1, lbITM, Label8 …
    int valor = 0;    ///< for bars
    int maximo = 100;
    QString texto;  ///< for labels
};

/// The functions the modules talk through. Every one is always callable: the default answers No, nothing and
/// the empty text, and shows nothing.
struct Dialogos {
    std::function<void(const Mensaje &)> mensaje = [](const Mensaje &) {};
    std::function<bool(const Pregunta &)> preguntar = [](const Pregunta &) { return false; };
    /// The typed text, or nothing on cancel.
    std::function<std::optional<QString>(const Entrada &)> pedirTexto = [](const Entrada &) {
        return std::optional<QString>();
    };
    /// The chosen index, or -1 when the user left. Any other value outside the rows: the list closed with
    /// nothing chosen.
    std::function<int(const Eleccion &)> elegir = [](const Eleccion &) { return -1; };
    std::function<RespuestaConOpciones(const PreguntaConOpciones &)> preguntarConOpciones =
        [](const PreguntaConOpciones &) { return RespuestaConOpciones(); };
    std::function<void(const Informe &)> informe = [](const Informe &) {};
    std::function<void(const Avance &)> avance = [](const Avance &) {};
    /// The whole path of the file to write; empty when the user left.
    std::function<QString(const PedidoDeArchivo &)> guardarComo = [](const PedidoDeArchivo &) {
        return QString();
    };
    /// Opens a file with the program that the system has for it; false when there is none.
    std::function<bool(const QString &archivo)> abrirArchivo = [](const QString &) { return false; };
    /// Opens an address of the web, http or https and nothing else, in the system's browser; false when it is
    /// another or there is none.
    std::function<bool(const QString &enlace)> abrirEnlace = [](const QString &) { return false; };
    /// Shows a document as it will be printed: from there it is printed and saved. Back when it was closed.
    std::function<void(const papel::Documento &)> vistaPrevia = [](const papel::Documento &) {};
    /// Prints a document by the system's dialog; false when the user left or nothing was printed.
    std::function<bool(const papel::Documento &)> imprimir = [](const papel::Documento &) { return false; };
    /// The hourglass pointer: true sets it, false sets it back. Not counted: the last call wins.
    std::function<void(bool)> reloj = [](bool) {};
    /// Lets pending screen events run.
    std::function<void()> atenderEventos = [] {};

    void informar(const QString &texto, const QString &titulo = {}) const {
        mensaje({texto, titulo, Icono::Informacion, false});
    }
    void advertir(const QString &texto, const QString &titulo = {}) const {
        mensaje({texto, titulo, Icono::Exclamacion, false});
    }
    void critico(const QString &texto, const QString &titulo = {}, bool modalDeSistema = false) const {
        mensaje({texto, titulo, Icono::Critico, modalDeSistema});
    }
};

/// Sets the hourglass for its own life, so that it is set back on every road.
class Reloj {
 public:
    explicit Reloj(const Dialogos &dialogos) : dialogos_(dialogos) { dialogos_.reloj(true); }
    ~Reloj() { dialogos_.reloj(false); }
    Reloj(const Reloj &) = delete;
    Reloj &operator=(const Reloj &) = delete;

 private:
    const Dialogos &dialogos_;
};
