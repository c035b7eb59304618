// The tree of a mesh, drawn.

import { h, svg } from "./dom.js";

const WIDTH = 188;
const HEIGHT = 66;
const GAP = 92;
const STEP = 82;
const INDENT = 30;

const member = (object, key) => object?.children.find((child) => child.key?.name === key);
const textOf = (value) => (value ? value.value ?? value.raw : "");

/** A value of the document as a node of the drawing: a record itself, or one of its neighbours at any depth. */
function nodeOf(value, root) {
  const rssi = member(value, root ? "backhaul_rssi" : "rssi");
  return {
    title: root ? "This node" : textOf(member(value, "name")) || textOf(member(value, "mac")),
    model: root ? "" : textOf(member(value, "model")),
    address: textOf(member(value, root ? "controllerIp" : "ip")),
    offline: textOf(member(value, root ? "enabled" : "is_online")) === "false",
    link: root ? "" : `rssi ${textOf(rssi).replace("-", "\u2212")}`,
    children: (member(value, "neighbors")?.children ?? []).map((child) => nodeOf(child, false)),
  };
}

function place(node, depth, row) {
  node.depth = depth;
  let next = row;
  for (const child of node.children)
    next = place(child, depth + 1, next);
  node.row = node.children.length === 0 ? row : (node.children[0].row + node.children.at(-1).row) / 2;
  return Math.max(next, row + 1);
}

function placeBelow(node, depth, row) {
  node.depth = depth;
  node.row = row;
  return node.children.reduce((next, child) => placeBelow(child, depth + 1, next), row + 1);
}

const all = (node) => [node, ...node.children.flatMap(all)];
const short = (text, most) => (text.length > most ? `${text.slice(0, most - 1)}\u2026` : text);

function inWords(node) {
  const own = `${node.title}${node.offline ? ", offline" : ""}${node.link && !node.offline ? `, ${node.link}` : ""}`;
  return node.children.length === 0 ? own : `${own} (behind it: ${node.children.map(inWords).join("; ")})`;
}

function drawing(root, name, narrow) {
  if (narrow)
    placeBelow(root, 0, 0);
  else
    place(root, 0, 0);
  const nodes = all(root);
  const x = (node) => 1 + node.depth * (narrow ? INDENT : WIDTH + GAP);
  const y = (node) => 1 + node.row * STEP;
  const width = Math.max(...nodes.map((node) => x(node) + WIDTH)) + 1;
  const height = Math.max(...nodes.map((node) => y(node) + HEIGHT)) + 1;
  const links = nodes.flatMap((node) => node.children.map((child) => {
    const line = narrow ?
      `M${x(node) + 14} ${y(node) + HEIGHT}V${y(child) + HEIGHT / 2}H${x(child)}` :
      `M${x(node) + WIDTH} ${y(node) + HEIGHT / 2}C${x(node) + WIDTH + GAP / 2} ${y(node) + HEIGHT / 2} ` +
      `${x(child) - GAP / 2} ${y(child) + HEIGHT / 2} ${x(child)} ${y(child) + HEIGHT / 2}`;
    return svg("path", { d: line, class: child.offline ? "link offline" : "link" });
  }));
  const boxes = nodes.map((node) => svg("g", { class: `node${node.offline ? " offline" : ""}${node === root ? " root" : ""}`,
    transform: `translate(${x(node)} ${y(node)})` },
  svg("rect", { width: WIDTH, height: HEIGHT, rx: 8 }),
  svg("circle", { cx: WIDTH - 14, cy: 16, r: 4 }),
  svg("text", { x: 12, y: 21, class: "title" }, short(node.title, 21)),
  svg("text", { x: 12, y: 39 }, short([node.model, node.address].filter(Boolean).join("  "), 27)),
  svg("text", { x: 12, y: 56 }, node.offline ? "offline" : node.link)));
  return svg("svg", { role: "img", "aria-label": `Mesh of ${name}: ${inWords(root)}`, viewBox: `0 0 ${width} ${height}`, width, height },
    links.filter((each) => each.matches(".offline")), links.filter((each) => !each.matches(".offline")), boxes);
}

/** A drawing of the record's neighbours, which fits itself to the room that it has. */
export function drawMesh(record, name) {
  if (!record)
    return null;
  const figure = h("div", { class: "mesh" });
  const root = nodeOf(record, true);
  let drawn = null;
  const fit = () => {
    place(root, 0, 0);
    const depth = Math.max(...all(root).map((node) => node.depth));
    const narrow = depth * (WIDTH + GAP) + WIDTH > figure.clientWidth;
    if (narrow !== drawn)
      figure.replaceChildren(drawing(root, name, narrow));
    drawn = narrow;
  };
  new ResizeObserver(fit).observe(figure);
  return figure;
}
