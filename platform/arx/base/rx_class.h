// Run-time classes.
#pragma once
#include "platform/arx/base/adesk.h"
#include "platform/arx/base/heap.h"

class AcRxObject;

/// What a class is called and from which class it derives. One object a class, for the program's
/// life.
class AcRxClass {
 public:
  AcRxClass(const ACHAR* name, const ACHAR* dxfName, AcRxClass* parent)
      : name_(name), dxfName_(dxfName), parent_(parent) {}
  AcRxClass(const AcRxClass&) = delete;
  AcRxClass& operator=(const AcRxClass&) = delete;
  const ACHAR* name() const { return name_; }
  /// The record type, as "TEXT"; null for abstract classes.
  const ACHAR* dxfName() const { return dxfName_; }
  AcRxClass* myParent() const { return parent_; }
  /// Whether this is the other class or derives from it.
  bool isDerivedFrom(const AcRxClass* other) const {
    for (const AcRxClass* c = this; c != nullptr; c = c->parent_)
      if (c == other) return true;
    return false;
  }

 private:
  const ACHAR* name_;
  const ACHAR* dxfName_;
  AcRxClass* parent_;
};

/// Base of everything with a run-time class. Objects live on the platform's heap.
class AcRxObject : public AcHeapOperators {
 public:
  virtual ~AcRxObject() = default;
  static AcRxClass* desc();
  virtual AcRxClass* isA() const;
  bool isKindOf(const AcRxClass* other) const { return isA()->isDerivedFrom(other); }

 protected:
  AcRxObject() = default;
  AcRxObject(const AcRxObject&) = default;
  AcRxObject& operator=(const AcRxObject&) = default;
};

/// The members that every class with a run-time class has.
#define ACRX_DECLARE_MEMBERS(CLASS)                                   \
  static AcRxClass* desc();                                           \
  AcRxClass* isA() const override;                                    \
  static CLASS* cast(const AcRxObject* object) {                      \
    return object != nullptr && object->isKindOf(desc())              \
               ? static_cast<CLASS*>(const_cast<AcRxObject*>(object)) \
               : nullptr;                                             \
  }
#define ACRX_DEFINE_MEMBERS(CLASS, PARENT, DXFNAME)                 \
  AcRxClass* CLASS::desc() {                                        \
    static AcRxClass theClass(L## #CLASS, DXFNAME, PARENT::desc()); \
    return &theClass;                                               \
  }                                                                 \
  AcRxClass* CLASS::isA() const {                                   \
    return CLASS::desc();                                           \
  }
