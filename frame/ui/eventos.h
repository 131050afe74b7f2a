#pragma once
// Events of a widget as plain functions, so that a screen owns its window and is no subclass of it.

#include <QEvent>
#include <QKeyEvent>
#include <QObject>
#include <functional>

/// `oir` is called ahead of every event of `objeto`; true keeps the event from it. Lives as long as `objeto`.
void Escuchar(QObject *objeto, std::function<bool(QEvent *)> oir);

/// The same with the object that the event is for: an application hears those of all its objects.
void EscucharA(QObject *objeto, std::function<bool(QObject *, QEvent *)> oir);

/// The same for key presses alone.
void EscucharTeclas(QObject *objeto, std::function<bool(QKeyEvent *)> oir);

/// Keys that type nothing come with no text: some platforms give them a null character, which a grid takes
/// for the beginning of a search, and keeps. For the application, once.
void QuitarTextosMudos(QObject *aplicacion);

/// ENTER of either keyboard, without modifiers that would make it another key.
bool EsEnter(const QKeyEvent *tecla);
