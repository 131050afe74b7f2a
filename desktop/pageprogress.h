#pragma once

#include <QString>
#include <memory>

class QProgressDialog;
class QWidget;

/// How far long work over pages is, in a window that comes when it takes a while; ESC stops the work.
class AvanceDeHojas {
 public:
    /// `que` is said of each page: "Guardando".
    AvanceDeHojas(const QString &que, QWidget *duenio);
    ~AvanceDeHojas();
    AvanceDeHojas(const AvanceDeHojas &) = delete;
    AvanceDeHojas &operator=(const AvanceDeHojas &) = delete;

    /// False when the user stopped it.
    bool Seguir(int hechas, int total);

 private:
    QString que_;
    std::unique_ptr<QProgressDialog> caja_;
};
