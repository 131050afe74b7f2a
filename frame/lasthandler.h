#pragma once
// The last handler of a program: what nobody below it caught is told and ends the run in order.

#include <QString>
#include <cstdlib>
#include <functional>

/// What the exception in hand says to a user, one Spanish sentence: a Falla its own words, anything else what
/// it is and what to do. Only inside a `catch` block.
QString TextoDeLaExcepcion();

/// Runs `trabajo` and answers its exit status. Whatever slips past it is told through `decir`, with the
/// pointer and the like left to `decir`, and answers `siFalla`; so does a second failure while telling, which
/// goes to standard error with the first. Nothing is raised.
int CorrerConUltimaDefensa(const std::function<int()> &trabajo,
                           const std::function<void(const QString &)> &decir, int siFalla = EXIT_FAILURE);
