#pragma once
// The wish of the session, or of who started the program, that it ends.

#include <functional>

class QObject;

/// Calls `hacer` from the event loop, once for each time the process is asked to end (SIGTERM, SIGINT,
/// SIGHUP). Lives as long as `contexto`. Once a process.
void AlPedirFin(QObject *contexto, std::function<void()> hacer);
/// True from the first time on, also where no event loop ran to hear it.
bool SePidioFin();
