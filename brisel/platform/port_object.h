#pragma once

namespace Brisel::Platform {

class Engine;

/// What an engine hands out: immutable, shareable between threads, and of use only to the engine that made it.
class PortObject {
 public:
  PortObject(const PortObject&) = delete;
  PortObject& operator=(const PortObject&) = delete;
  virtual ~PortObject();
  /// The engine that made it; not to be called after that has gone.
  const Engine* maker() const noexcept { return maker_; }

 protected:
  /// A thing of this engine.
  explicit PortObject(const Engine& maker) noexcept : maker_(&maker) {}

 private:
  const Engine* maker_;
};

/// One face of a font file: what draws a run of glyphs.
class Face : public PortObject {
 protected:
  using PortObject::PortObject;
};

}  // namespace Brisel::Platform
