#include "desktop/pageprogress.h"

#include <QProgressDialog>
#include <QPushButton>

using namespace Qt::StringLiterals;

namespace {

constexpr int esperaDeAvance = 400;  ///< milliseconds

}  // namespace

AvanceDeHojas::AvanceDeHojas(const QString &que, QWidget *duenio)
    : que_(que), caja_(std::make_unique<QProgressDialog>(duenio)) {
    caja_->setWindowTitle(que);
    caja_->setLabelText(que + u"..."_s);
    caja_->setCancelButton(new QPushButton(u"&Detener"_s));
    caja_->setWindowModality(Qt::ApplicationModal);
    caja_->setMinimumDuration(esperaDeAvance);
    caja_->setMinimumWidth(360);
    caja_->setAutoClose(false);
    caja_->setAutoReset(false);
    // ESC ahead of its shortcut being in force would hide the window and let the work go on.
    QObject::connect(caja_.get(), &QDialog::rejected, caja_.get(), &QProgressDialog::cancel);
}

AvanceDeHojas::~AvanceDeHojas() = default;

bool AvanceDeHojas::Seguir(int hechas, int total) {
    caja_->setMaximum(total);
    caja_->setLabelText(u"%1 la hoja %2 de %3..."_s.arg(que_).arg(hechas).arg(total));
    caja_->setValue(hechas);
    return !caja_->wasCanceled();
}
