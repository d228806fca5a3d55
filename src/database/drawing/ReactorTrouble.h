#pragma once

#include <QString>

#include <functional>

/// What becomes of an error that a reactor raises: it is told and goes no further, since records
/// close, and tell their reactors, where nothing may be raised. The edit stands and the other
/// reactors are told of it.
namespace reactor_trouble {

using Teller = std::function<void(const QString& sentence)>;

/// Who is told; nobody until this is called, and with none.
void setTeller(Teller teller);
/// Tells the error that is being handled. Raises nothing.
void tell() noexcept;

} // namespace reactor_trouble
