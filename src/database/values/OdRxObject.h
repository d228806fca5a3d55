#pragma once

#include "database/values/OdSmartPtr.h"

/// Reference-counted run-time object; counts start at 1 for objects made by create().
class OdRxObject
{
public:
    OdRxObject(const OdRxObject&) = delete;
    OdRxObject& operator=(const OdRxObject&) = delete;
    virtual ~OdRxObject() = default;

    void addRef() { ++m_references; }
    void release()
    {
        if (--m_references == 0)
            delete this;
    }
    int numRefs() const { return m_references; }

protected:
    OdRxObject() = default;

private:
    int m_references = 1;
};

/// Makes a counted object whose count is 1.
template <class T, class... Args>
OdSmartPtr<T> odrxCreate(Args&&... args)
{
    return OdSmartPtr<T>::adopt(new T(std::forward<Args>(args)...));
}
