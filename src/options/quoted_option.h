// Access to another option group while a report block is printed: the personality's record of
// that group, or a temporary one built for the report's radio type when the personality lacks it.
#pragma once

#include <memory>

#include "core/personality.h"

namespace persona {

// The personality's record of class T, or null (also for a null personality). The personality
// keeps ownership.
template <class T>
const T* HeldOption(const CPersonality* personality) {
  return personality != nullptr ? static_cast<const T*>(personality->GetOption(T::ThisClass()))
                                : nullptr;
}

// The record of class T to quote: the personality's own, or a temporary one made with T's model
// constructor (radio type, flag 0) that this object owns and deletes. The personality is not
// changed.
template <class T>
class CQuotedOption {
 public:
  CQuotedOption(const CPersonality* personality, unsigned short radioType)
      : m_rec(HeldOption<T>(personality)) {
    if (m_rec == nullptr) {
      m_temp = std::make_unique<T>(radioType, 0);
      m_rec = m_temp.get();
    }
  }
  const T& operator*() const { return *m_rec; }
  const T* operator->() const { return m_rec; }
  const T* get() const { return m_rec; }

 private:
  std::unique_ptr<T> m_temp;
  const T* m_rec;
};

}  // namespace persona
