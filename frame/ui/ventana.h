#pragma once
// What every screen's window shares.

#include <QDialog>
#include <QString>
#include <functional>
#include <memory>

#include "frame/context.h"

/// A dialog over the frame, with a title bar that closes it and no question mark.
std::unique_ptr<QDialog> HacerDialogo();

/// A handler of a screen: an error of the store becomes a critical message with the engine's words, and the
/// handler leaves. True when it ran to its end.
bool Manejar(AppContext &ctx, const std::function<void()> &hacer);

/// Runs what a screen keeps when it is left. True when the store of the entity went away meanwhile: it may be
/// back for the next try, and what was typed waits for it. One that was away before is not waited for again.
bool SeFueElStore(AppContext &ctx, const QString &entidad, const std::function<void()> &guardar);

/// The word of a button whose screen is not part of this version.
void NoDisponible(AppContext &ctx);
/// The word of a button whose work is done by a library that is not there: `opcion` is what the button says.
void SinBiblioteca(AppContext &ctx, const QString &biblioteca, const QString &opcion);

/// Shows a window and takes the keyboard to it.
void MostrarVentana(QWidget *ventana);
