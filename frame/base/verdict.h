#pragma once
// How the checks of a screen end.

#include <QString>

/// What a screen does after its module has checked or saved: go on, or stay with the focus on a field.
struct Veredicto {
    bool ok = false;
    QString foco;  ///< name of the control that takes the focus; empty: the focus stays where it is

    static Veredicto bien(const QString &foco = {}) { return {true, foco}; }
    static Veredicto mal(const QString &foco = {}) { return {false, foco}; }
};
