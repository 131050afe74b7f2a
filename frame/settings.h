#pragma once
// The per-workstation settings area, and the machine's: application, section, key, value, all text.

#include <QString>
#include <memory>

class QSettings;

/// Kept with QSettings in the user's own area, or in one INI file when a path is given. Section and key may
/// hold any character ("/", "\", accents): they are encoded.
class Ajustes {
 public:
    /// An empty path means the user's own area.
    explicit Ajustes(const QString &archivo = {});

    /// The area of the whole machine, which an installation writes and everybody reads:
    /// "/etc/xdg/Zendra/ajustes.ini" or what the platform has for it.
    static Ajustes DeLaMaquina();

    /// The stored value, or `defecto` when there is none.
    QString Leer(const QString &aplicacion, const QString &seccion, const QString &clave,
                 const QString &defecto = {}) const;
    void Guardar(const QString &aplicacion, const QString &seccion, const QString &clave,
                 const QString &valor);
    /// Removing what is not there is no failure.
    void Borrar(const QString &aplicacion, const QString &seccion, const QString &clave);

    const QString &archivo() const { return archivo_; }
    /// The folder that the area's file lies in, in either case.
    QString carpeta() const;

 private:
    Ajustes(QString archivo, std::shared_ptr<QSettings> area);

    QString archivo_;
    std::shared_ptr<QSettings> area_;
};
