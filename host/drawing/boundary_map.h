#pragma once

#include <cstdint>
#include <optional>
#include <unordered_map>
#include <vector>

#include "host/drawing/drawing.h"
#include "host/geometry/loop.h"

namespace brevan {

// What is traced: the closed boundary round a point and the outline of a figure, through crossings and
// T-junctions of all visible lines and arcs. Ends and crossings nearer than kJoin meet, because corners
// come printed with three decimals.
//
// Each curve's junctions are worked out when a walk first comes by and kept until something that it meets
// changes, so that tracing costs what lies along the boundary. The drawing tells the map of its changes;
// what is hidden is found out at the next tracing.
class BoundaryMap : private DrawingListener {
 public:
  static constexpr double kJoin = 0.001;

  explicit BoundaryMap(Drawing& drawing);
  ~BoundaryMap() override;
  BoundaryMap(const BoundaryMap&) = delete;
  BoundaryMap& operator=(const BoundaryMap&) = delete;

  // The smallest closed boundary round the point, clockwise; empty where there is none. Islands in it do not
  // count, nor do lines that end in it.
  Loop around(Point p);

  struct Outline {
    std::vector<Curve> curves;
    bool closed = false;
  };
  // The boundary round the point; for a point outside of every figure the outer outline of the nearest
  // figure, clockwise, or its pieces end to end where it is one open chain, the point to the left of them:
  // of the curve, the corner or, carried on, the end that is nearest.
  // Nothing where the drawing is empty or the nearest figure branches without closing.
  std::optional<Outline> outlineNear(Point p);
  // The closed figure to which the curve nearest to the point belongs, clockwise, walked on its outer side: of rings
  // one within the other the one pointed at, whatever surrounds it. Empty where that curve belongs to none.
  Loop figureOfNearest(Point p);

  // While copying, what is drawn only repeats the boundary traced last: it bounds nothing new as long as
  // what it repeats is there.
  void beginCopying();
  void endCopying() { copying_ = false; }

 private:
  struct Partner {
    int curve = 0;
    double t = 0.0;
  };
  struct Node {  // a junction as one of its curves knows it
    double t = 0.0;
    Point at;
    uint32_t firstPartner = 0;
    uint32_t partners = 0;
  };
  struct Entry {
    PrimitiveId id = 0;  // 0: gone
    Curve curve;
    Box box;
    bool known = false;  // nodes and partners
    std::vector<Node> nodes;
    std::vector<Partner> partners;
    std::vector<size_t> copies;  // indexes into copies_
  };
  struct NodeRef {
    int curve = 0;
    int node = 0;
    friend auto operator<=>(const NodeRef&, const NodeRef&) = default;
  };
  // From a node to the next along (+1) or against (-1) the curve.
  struct HalfEdge {
    NodeRef from;
    int direction = 1;
    friend bool operator==(const HalfEdge&, const HalfEdge&) = default;
  };
  struct Step {
    HalfEdge edge;
    NodeRef start;  // the junctions, each under one name
    NodeRef end;
    Curve piece;
  };
  struct Hit {
    int curve = 0;
    double t = 0.0;
    double along = 0.0;  // the ray
  };
  struct Copies {
    std::vector<PrimitiveId> ids;
  };

  void primitiveAdded(PrimitiveId id, const Primitive& primitive) override;
  void primitiveRemoved(PrimitiveId id) override;

  void update();
  void rebuild();
  void enter(PrimitiveId id);
  void leave(int entry);
  void forgetJunctions(const Box& box);
  [[nodiscard]] bool hiddenOtherwise();

  Entry& known(int curve);
  void workOut(int curve);
  [[nodiscard]] int nodeAt(int curve, double t);
  void gatherJunction(NodeRef node);
  [[nodiscard]] std::optional<HalfEdge> nextFrom(NodeRef node, Point reverse, double reverseCurvature);
  [[nodiscard]] bool leads(const HalfEdge& edge);
  [[nodiscard]] NodeRef farEnd(const HalfEdge& edge);
  [[nodiscard]] Point directionOf(const HalfEdge& edge);
  [[nodiscard]] Curve pieceAlong(const HalfEdge& edge, Point start, Point end);
  [[nodiscard]] std::vector<Step> walk(const HalfEdge& first);
  [[nodiscard]] std::vector<Step> walkFrom(int curve, double t, Point side);
  [[nodiscard]] std::vector<std::vector<Step>> loopsOf(const std::vector<Step>& steps) const;
  [[nodiscard]] Loop joined(const std::vector<Step>& steps, bool closed) const;
  [[nodiscard]] std::optional<Hit> firstHit(Point p, Point ray, double from);
  [[nodiscard]] bool besideJunction(const Hit& hit, Point ray);
  // Nothing where the ray runs into a junction and says nothing.
  [[nodiscard]] std::optional<Loop> aroundByRay(Point p, Point ray);
  [[nodiscard]] int nearestEntry(Point p) const;
  [[nodiscard]] bool endsChain(const HalfEdge& edge);
  [[nodiscard]] HalfEdge passBesideEnd(const HalfEdge& fromEnd, Point side);
  [[nodiscard]] std::vector<Step> walkBeside(int curve, Point p);
  [[nodiscard]] double middleOfPiece(int curve, double t);
  [[nodiscard]] Loop largestLoop(const std::vector<Step>& steps) const;
  [[nodiscard]] std::optional<Outline> openChain(std::vector<Step> steps) const;
  void noteSources(const std::vector<Step>& steps);

  Drawing& drawing_;
  std::vector<Entry> entries_;
  std::vector<int> freeEntries_;
  std::unordered_map<PrimitiveId, int> entryOf_;
  SpatialIndex index_;
  Box extents_;
  double stride_ = 1.0;  // how far a ray looks at once
  std::vector<bool> layersSeen_;

  bool stale_ = true;
  std::vector<PrimitiveId> added_;
  std::vector<int> removed_;

  std::vector<NodeRef> junction_;  // of gatherJunction
  std::vector<int> sources_;       // of the boundary traced last
  bool copying_ = false;
  std::vector<Copies> copies_;
  std::unordered_map<PrimitiveId, size_t> copyOf_;
};

}  // namespace brevan
