#pragma once
// The desktop program as its users have it: a process of its own, keys, an end with an exit status.

#include <QProcess>
#include <QString>

/// One run of `zendra` without a display, with a keyboard that the test plays (teclado/).
class Escritorio {
 public:
    /// Puts the program into `carpeta`, where it looks for its profile first; home and settings are there
    /// too.
    explicit Escritorio(const QString &carpeta);
    /// Ends the program when it still runs.
    ~Escritorio();
    Escritorio(const Escritorio &) = delete;
    Escritorio &operator=(const Escritorio &) = delete;

    /// Starts the program and waits until one of its windows has the keyboard; false when that never comes.
    bool Empezar();
    /// Presses and lets go a key in the window that has the keyboard.
    void Pulsar(Qt::Key tecla, int veces = 1);
    /// Waits until `ventana` has the keyboard: a form by its name, a message by the beginning of its text.
    /// False, with what there is instead in Visto(), when that never comes.
    bool Esperar(const QString &ventana);
    /// The window that had the keyboard last, with its widget in hand.
    const QString &Visto() const { return visto_; }
    /// Asks the process to end, as a session does that is closing.
    void PedirFin() { proceso_.terminate(); }

    /// Waits for the end. The exit status; -1 when the program crashed, -2 when it goes on.
    int EsperarFin();
    /// What the program wrote to its error output.
    QString Errores();

 private:
    QString preguntar();

    QString carpeta_, visto_;
    QProcess proceso_;
};
