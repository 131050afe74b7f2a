#include "operations/FrmIntercambioBarra.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QDialog>
#include <QLabel>
#include <QLineEdit>
#include <QProgressBar>
#include <algorithm>

using namespace Qt::StringLiterals;

BarraDeAvance::BarraDeAvance(AppContext &ctx, QDialog *ventana)
    : ctx_(ctx), ventana_(ventana), anterior_(ctx.dialogos.avance) {
    ctx.dialogos.avance = [this](const Avance &avance) {
        anterior_(avance);
        if (avance.tipo == Avance::Tipo::Barra) {
            auto *barra = ventana_->findChild<QProgressBar *>(avance.control);
            barra->setMaximum(std::max(1, avance.maximo));
            barra->setValue(std::min(avance.valor, barra->maximum()));
            barra->setVisible(true);
        } else if (avance.tipo == Avance::Tipo::Etiqueta) {
            ventana_->findChild<QLabel *>(avance.control)->setText(avance.texto);
        }
    };
    const auto todos = ventana->findChildren<QWidget *>();
    for (QWidget *uno : todos) {
        const bool seToca = qobject_cast<QAbstractButton *>(uno) != nullptr ||
                            qobject_cast<QLineEdit *>(uno) != nullptr ||
                            qobject_cast<QAbstractItemView *>(uno) != nullptr;
        if (!seToca || !uno->isEnabledTo(uno->parentWidget())) continue;
        uno->setEnabled(false);
        apagados_.emplace_back(uno);
    }
}

BarraDeAvance::~BarraDeAvance() {
    ctx_.dialogos.avance = anterior_;
    ventana_->findChild<QProgressBar *>(u"Pb"_s)->setVisible(false);
    ventana_->findChild<QLabel *>(u"LbAvance"_s)->clear();
    for (const auto &uno : apagados_)
        if (uno) uno->setEnabled(true);
}
