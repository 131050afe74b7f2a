#pragma once
// Screens whose server goes: while they lie idle, or at a chosen statement of what a key does.

#include <QPointer>
#include <functional>
#include <optional>

#include "tests/support/intermediario.h"
#include "tests/support/pantallas.h"
#include "tests/support/servidorpropio.h"

/// What a user does on a screen.
struct AccionDeUsuario {
    const char *nombre;
    std::function<void()> preparar;       ///< rows that have to be there
    std::function<void()> abrir;          ///< may wait until the screen is closed
    std::function<QWidget *()> ventana;   ///< null while it does not stand
    std::function<void()> teclear;        ///< ahead of the key
    std::function<void()> llave;          ///< the key whose work is disturbed
    int avisos = 1;                       ///< of a loss, with its questions
    QString admite = {};                  ///< of what the next try may tell as critical, its beginning
    std::function<QString()> visto = {};  ///< what the work shows, where it does not write
};

/// When the server goes, in statements of the key's work that it answered.
struct MomentoDeCaida {
    int sentencias = 0;
    /// The server itself stops, and is started when the user has read the message; otherwise the line to it.
    bool servidor = false;
};

/// The demonstration on a server of one's own, reached over a line that can be cut.
class EnCaidas : public EnPantalla {
 protected:
    void SetUp() override;
    void TearDown() override;
    void AlHacerLaTienda() override;
    QString palabrasDelServidor() const override { return ServidorDePaso().palabras(); }

    /// What became of an action.
    struct Hecho {
        QString retrato;  ///< of the store, behind it
        QString visto;
        int sentencias = 0;    ///< of the key's work, undisturbed
        QStringList vaciados;  ///< fields that hold something else when the loss was told
        QString alFallar;      ///< the store's portrait at that moment
        QStringList dicho;     ///< the messages of the disturbed key
        std::size_t preguntas = 0;
        bool cayo = false;  ///< the server went
    };
    /// The action on stores as they are made: undisturbed, or with the server gone at a moment and, where
    /// that was told, the key pressed again when it is back.
    Hecho hacer(const AccionDeUsuario &accion, std::optional<MomentoDeCaida> caida = {});
    /// The same with the server started again while the screen lies idle.
    Hecho hacerTrasElReposo(const AccionDeUsuario &accion);
    Intermediario &linea() { return *linea_; }

 private:
    enum class Que { Nada, Reposo, Caida };
    Hecho representar(const AccionDeUsuario &accion, Que que, MomentoDeCaida caida);
    void enEscena(const AccionDeUsuario &accion, Que que, MomentoDeCaida caida, Hecho &hecho);
    void caer(const MomentoDeCaida &caida);
    void volver();
    void dejar(const AccionDeUsuario &accion);

    std::optional<Intermediario> linea_;
};
