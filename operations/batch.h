#pragma once
// The work of the batch program: one command on one operation, without a screen.

#include <QJsonObject>
#include <QString>
#include <QStringList>

#include "frame/context.h"

namespace lote {

/// What the options file may say besides the configuration file's options: the controls of the dashboard.
struct Tablero {
    bool opOrdenxNCM = false;
    bool ChMulta = false;
    bool ChCOEF = false;
    bool chkCalcularServicioDigitalizacion = false;
    QString DJAI_USAR_DESCRIPCION;  ///< "MARIA", "CATALOGO", "MEZCLA" or empty
};

struct Orden {
    QString comando;  ///< armar, liquidar, comprobar, crear, borrar, listar
    QString clave;
    bool forzar = false;  ///< arm although the mark does not ask for it
};

constexpr int bien = 0;
constexpr int falla = 1;
constexpr int malPedido = 2;

const QStringList &Comandos();

/// The dashboard as a program that starts finds it: from the options and the settings area.
Tablero TableroInicial(AppContext &ctx);

/// Takes what the options file says into the context and the dashboard; false with one Spanish line in `error` for a
/// name that is not known or a value of another kind.
bool AplicarOpciones(const QJsonObject &opciones, AppContext &ctx, Tablero &tablero, QString &error);

/// Runs the order; `resultado` takes the last line's members. The operation is locked like a screen would, and released
/// at the end. Answers the exit status.
int Ejecutar(AppContext &ctx, const Orden &orden, const Tablero &tablero, QJsonObject &resultado);

}  // namespace lote
