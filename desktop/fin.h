#pragma once
// The end of the program: by its user, or by who started it.

#include <functional>

class QObject;

/// Ends the process at once, without asking any window whether it agrees; tests replace it.
extern std::function<void()> TerminarPrograma;

/// Calls `hacer` from the event loop, once for each time the process is asked to end (SIGTERM, SIGINT,
/// SIGHUP). Lives as long as `contexto`. Once a process.
void AlPedirFin(QObject *contexto, std::function<void()> hacer);
/// True from the first time on, also where no event loop ran to hear it.
bool SePidioFin();
