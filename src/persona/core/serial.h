// CSerial: the common base of option records, systems and the personality. It holds no data;
// it lets the personality's option list hold and search every option record by class.
#pragma once

#include <persona/export.h>

#include <persona/framework/fields.h>
#include <persona/framework/object.h>

namespace persona {

class PERSONA_EXPORT CSerial : public CObject {
  DECLARE_SERIAL(CSerial)
 public:
  CSerial() = default;
  CSerial(const CSerial&) = default;
  CSerial& operator=(const CSerial&) = default;
  ~CSerial() override = default;

  // Writes and reads nothing.
  void Serialize(CArchive& ar) override;
  // Releases what the record owns and empties its lists; the record stays usable. The base
  // owns nothing.
  virtual void Delete() {}
};

}  // namespace persona
