#pragma once

/// What a class tells of itself at run time.
struct CRuntimeClass {
  const char* m_lpszClassName;
  const CRuntimeClass* m_pBaseClass;
};

/// The root of the platform's classes.
class CObject {
 public:
  virtual ~CObject() = default;
  virtual const CRuntimeClass* GetRuntimeClass() const;
  bool IsKindOf(const CRuntimeClass* wanted) const;

  static const CRuntimeClass classCObject;

 protected:
  CObject() = default;
  CObject(const CObject&) = default;
  CObject& operator=(const CObject&) = default;
};

// The names by which classes declare and give their description.
#define RUNTIME_CLASS(name) (&name::class##name)
#define DECLARE_DYNAMIC(name)             \
 public:                                  \
  static const CRuntimeClass class##name; \
  const CRuntimeClass* GetRuntimeClass() const override;
#define IMPLEMENT_DYNAMIC(name, base)                                  \
  const CRuntimeClass name::class##name = {#name, &base::class##base}; \
  const CRuntimeClass* name::GetRuntimeClass() const {                 \
    return &class##name;                                               \
  }
