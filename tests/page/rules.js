// Rules of accessibility that a script can hold a page to. Answers what breaks them, a line each.
const broken = [];
const shown = (element) => element.checkVisibility({ checkOpacity: true, checkVisibilityCSS: true }) &&
  element.getClientRects().length !== 0;
const all = (selector) => [...document.querySelectorAll(selector)].filter(shown);
const called = (element) => {
  const own = element.tagName.toLowerCase() + (element.id ? `#${element.id}` : "") +
    (element.className && element.className.trim ? `.${element.className.trim().split(/\s+/).join(".")}` : "");
  return `${own} "${(element.textContent || "").trim().slice(0, 30)}"`;
};
const complain = (rule, element) => broken.push(`${rule}: ${called(element)}`);

// Names.
const nameOf = (element) => {
  const by = element.getAttribute("aria-labelledby");
  if (by)
    return by.split(/\s+/).map((id) => document.getElementById(id)?.textContent ?? "").join(" ").trim();
  const label = element.getAttribute("aria-label") ?? [...(element.labels ?? [])].map((each) => each.textContent).join(" ");
  return (label || (["INPUT", "SELECT", "TEXTAREA"].includes(element.tagName) ? "" : element.textContent) || "").trim();
};
for (const element of all("a, button, input, select, textarea, summary, [role=option], [role=listbox], [role=region], [role=group], [role=img], nav, dialog[open]")) {
  if (element.getAttribute("aria-hidden") !== "true" && !nameOf(element))
    complain("has no name", element);
}
for (const element of all("a")) {
  if (!element.hasAttribute("href"))
    complain("a link that leads nowhere", element);
}

// Structure.
if (document.documentElement.lang !== "en")
  broken.push("the page's language is not said");
if (!document.title)
  broken.push("the page has no title");
for (const landmark of ["main", "header", "nav", "[role=search]"]) {
  if (all(landmark).length === 0)
    broken.push(`no landmark ${landmark}`);
}
if (all("main").length !== 1)
  broken.push("not one main");
const levels = [...document.querySelectorAll("main h1, main h2, main h3, main h4")].filter(shown).map((each) => Number(each.tagName[1]));
if (levels.filter((level) => level === 1).length !== 1 || levels[0] !== 1)
  broken.push(`headings of main begin with ${levels}`);
levels.forEach((level, i) => {
  if (i > 0 && level > levels[i - 1] + 1)
    broken.push(`a heading of level ${level} follows one of ${levels[i - 1]}`);
});
const ids = [...document.querySelectorAll("[id]")].map((each) => each.id);
ids.filter((id, i) => ids.indexOf(id) !== i).forEach((id) => broken.push(`the id ${id} is there twice`));
for (const attribute of ["aria-labelledby", "aria-describedby", "aria-controls", "for"]) {
  for (const element of document.querySelectorAll(`[${attribute}]`)) {
    for (const id of element.getAttribute(attribute).split(/\s+/)) {
      if (!document.getElementById(id))
        complain(`${attribute} names ${id}, which is not there`, element);
    }
  }
}
for (const element of document.querySelectorAll("[tabindex]")) {
  if (element.tabIndex > 0)
    complain("changes the order of the Tab key", element);
}

// Roles.
const ROLES = ["option", "listbox", "group", "region", "presentation", "img", "status", "search", "textbox"];
for (const element of document.querySelectorAll("[role]")) {
  const role = element.getAttribute("role");
  if (!ROLES.includes(role))
    complain(`an unknown role ${role}`, element);
  if (role === "option" && !element.closest("[role=listbox]"))
    complain("an option outside of a list", element);
  if (role === "option" && !["true", "false"].includes(element.getAttribute("aria-selected")))
    complain("an option that is neither selected nor not", element);
}
for (const list of all("[role=listbox]")) {
  const options = [...list.querySelectorAll("[role=option]")];
  if (options.length !== 0 && !list.closest(".CodeMirror-hints") && options.filter((each) => each.tabIndex === 0).length !== 1)
    complain("a list without one stop of the Tab key", list);
}
for (const element of all("table")) {
  if (!element.querySelector("th[scope=col]"))
    complain("a table without heads", element);
}
for (const element of all("*")) {
  const style = getComputedStyle(element);
  const scrolls = ["auto", "scroll"].includes(style.overflowY) && element.scrollHeight > element.clientHeight + 1;
  if (scrolls && element.tabIndex < 0 && !element.querySelector("a, button, input, [tabindex='0']") && !element.closest(".CodeMirror") &&
      element !== document.documentElement && element !== document.body)
    complain("scrolls, and no key gets there", element);
}
for (const element of all("button, select, input, [role=search] input")) {
  const box = element.getBoundingClientRect();
  if (box.height < 22 || box.width < 24)
    complain(`is ${box.width.toFixed(0)} by ${box.height.toFixed(0)} pixels`, element);
}

// Contrast, as WCAG 2 counts it.
const colour = (text) => {
  const [r, g, b, a = 1] = (text.match(/[\d.]+/g) ?? [0, 0, 0, 0]).map(Number);
  return /^color\(srgb/.test(text) ? [r * 255, g * 255, b * 255, a] : [r, g, b, a];
};
const over = (top, below) => [0, 1, 2].map((i) => top[i] * top[3] + below[i] * (1 - top[3])).concat(1);
const luminance = (rgb) => {
  const [r, g, b] = rgb.map((each) => { const part = each / 255; return part <= 0.03928 ? part / 12.92 : ((part + 0.055) / 1.055) ** 2.4; });
  return 0.2126 * r + 0.7152 * g + 0.0722 * b;
};
const ratio = (one, other) => {
  const [light, dark] = [luminance(one), luminance(other)].sort((a, b) => b - a);
  return (light + 0.05) / (dark + 0.05);
};
const backOf = (element) => {
  const layers = [];
  for (let each = element; each; each = each.parentElement)
    layers.push(colour(getComputedStyle(each).backgroundColor));
  return layers.reverse().reduce((below, layer) => over(layer, below), [255, 255, 255, 1]);
};
let texts = 0;
const walker = document.createTreeWalker(document.body, NodeFilter.SHOW_TEXT);
for (let node = walker.nextNode(); node; node = walker.nextNode()) {
  const element = node.parentElement;
  if (!node.data.trim() || !shown(element) || element.closest(".hidden, .skip, script, .CodeMirror-measure"))
    continue;
  const style = getComputedStyle(element);
  const drawn = element.namespaceURI.endsWith("svg");
  const back = drawn ? over(colour(getComputedStyle(element.parentElement.querySelector("rect")).fill), backOf(element.closest("svg").parentElement)) :
    backOf(element);
  const text = over(colour(drawn ? style.fill : style.color), back);
  const size = parseFloat(style.fontSize);
  const large = size >= 24 || (size >= 18.66 && Number(style.fontWeight) >= 700);
  texts += 1;
  if (ratio(text, back) < (large ? 3 : 4.5) && !element.closest(":disabled"))
    complain(`contrast ${ratio(text, back).toFixed(2)}`, element);
}
for (const element of all("button, input, select").filter((each) => !each.disabled)) {
  const style = getComputedStyle(element);
  if (style.borderStyle !== "none" && parseFloat(style.borderTopWidth) > 0 && !element.matches(".zeros, .finding") &&
      ratio(over(colour(style.borderTopColor), [255, 255, 255, 1]), backOf(element.parentElement)) < 3)
    complain("its edge has little contrast", element);
}
if (texts < 10)
  broken.push(`only ${texts} texts were looked at`);

// Focus is seen.
const before = document.activeElement;
for (const element of all("a[href], button, input, select, summary, [tabindex='0']").filter((each) => !each.disabled)) {
  element.focus({ preventScroll: true });
  const editor = element.closest(".editor");
  const style = getComputedStyle(element);
  if (editor && document.activeElement === element ? getComputedStyle(editor).boxShadow === "none" : document.activeElement === element && !element.matches(".skip") && (style.outlineStyle === "none" || parseFloat(style.outlineWidth) < 2))
    complain("its focus is not seen", element);
}
before?.focus?.({ preventScroll: true });
return broken;
