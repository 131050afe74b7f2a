#pragma once

#include <QString>

namespace StoreProfiles {
class SPMain;
}

/// The suffix check that asks nothing of the user.
class SuffixCheckerClass {
  public:
    /// Takes the connection manager by reference, once.
    void SetDataManager(StoreProfiles::SPMain *manager) { manager_ = manager; }

    /// 0 valid; 1 the position's first two keys are not in the nomenclature; 2 a required family has no fitting
    /// token. Tokens of families that are not required do not make a text invalid. Raises ErrorDeStore.
    int Validar(const QString &posicion, const QString &sufijos) const;

  private:
    StoreProfiles::SPMain *manager_ = nullptr;
};
