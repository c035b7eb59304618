// The frame of the page: where one is (the fragment of the address), the search, the resources beside it.

import { h, say } from "./dom.js";
import { find, grouped, groupName } from "./find.js";
import { look } from "./look.js";
import { read, wayOf } from "./contract.js";
import { tryOut } from "./try.js";
import { secretsShown, showSecrets } from "./secrets.js";
import * as api from "./api.js";

const VIEWS = { look: ["Look", look], try: ["Try", tryOut], read: ["Read", read] };

const main = document.getElementById("main");
const query = document.getElementById("query");
const side = document.getElementById("side");
const secrets = document.getElementById("secrets");
const confirm = document.getElementById("confirm");

let current = null;
let shown = 0;

function routeOf(hash) {
  const [path, parameters] = hash.replace(/^#\/?/, "").split("?");
  const values = Object.fromEntries(new URLSearchParams(parameters ?? ""));
  const [name, view] = path.split("/").map(decodeURIComponent);
  return !name || name === "find" ? { view: "find", values } : { name, view: view || "look", values };
}

function hashOf(name, view, values) {
  const parameters = new URLSearchParams(Object.entries(values).filter(([, value]) => value !== undefined)).toString();
  return `#/${encodeURIComponent(name)}/${view}${parameters ? `?${parameters}` : ""}`;
}

async function drawSide(name) {
  const resources = await api.resources();
  if (side.childElementCount === 0) {
    side.append(...grouped(resources).map(([group, those]) => h("section", {}, h("h2", {}, groupName(group)),
      h("ul", {}, those.map((each) => h("li", {}, h("a", { "data-name": each.resource }, each.resource)))))));
  }
  const { view } = routeOf(location.hash);
  for (const link of side.querySelectorAll("a")) {
    link.href = `#/${link.dataset.name}/${view === "find" ? "look" : view}`;
    const here = link.dataset.name === name;
    if (here) {
      link.setAttribute("aria-current", "page");
      if (side.clientHeight > 0 && (link.offsetTop < side.scrollTop || link.offsetTop > side.scrollTop + side.clientHeight - 60))
        side.scrollTop = link.offsetTop - side.clientHeight / 2;
    } else {
      link.removeAttribute("aria-current");
    }
  }
}

// focus: what finds the element to be in focus then, if it is to be another one than the view's own.
async function show(focus) {
  const number = ++shown;
  const route = routeOf(location.hash);
  const box = h("div", { class: `view ${route.view}` });
  let view = null;
  try {
    if (route.view === "find") {
      if (document.activeElement !== query)
        query.value = route.values.q ?? "";
      document.title = route.values.q ? `${route.values.q}: kelmora-host` : "kelmora-host";
      await find(box, route.values);
    } else {
      const resource = (await api.resources()).find((each) => each.resource === route.name);
      if (!resource || !VIEWS[route.view])
        throw new api.Refusal(404, { title: resource ? `There is no view ${route.view}.` : `There is no resource ${route.name}.` });
      document.title = `${route.name}, ${VIEWS[route.view][0].toLowerCase()}: kelmora-host`;
      if (document.activeElement !== query)
        query.value = "";
      const id = route.values.id;
      box.append(h("div", { class: "title" }, h("h1", {}, route.name),
        h("nav", { class: "tabs", "aria-label": "Views" }, Object.entries(VIEWS).map(([key, [text]]) =>
          h("a", { href: hashOf(route.name, key, { id }), "aria-current": key === route.view ? "page" : null }, text))),
        h("span", { class: "badges" }, [groupName(resource.group), `number ${resource.number}`, resource.shape, wayOf(resource)]
          .filter(Boolean).map((text) => h("span", { class: "badge" }, text)))));
      // What is put into the box before it is on the page has no size yet: a view may start once it has.
      if (number === shown)
        replace(box, route);
      view = await VIEWS[route.view][1](box, route.name, route.values,
        (values) => { location.hash = hashOf(route.name, route.view, values); },
        (key, values, focus) => become(route.name, key, values, focus));
    }
  } catch (error) {
    const text = error instanceof api.Refusal ? error.message : "The server does not answer.";
    if (!(error instanceof api.Refusal) && !(error instanceof TypeError && /fetch/.test(error.message)))
      throw error;
    box.replaceChildren(h("h1", {}, text), h("p", {}, h("a", { href: "#/find" }, "All resources")));
  }
  if (number !== shown) {
    view?.end?.();
    return;
  }
  if (!box.isConnected)
    replace(box, route);
  current = view;
  (typeof view === "function" ? view : view?.start)?.();
  if (focus)
    main.querySelector(focus)?.focus();
  main.dataset.shown = location.hash;
}

// In the place of what is shown, which Back then does not lead to.
function become(name, view, values, focus) {
  history.replaceState(null, "", hashOf(name, view, values));
  return show(focus);
}

function replace(box, route) {
  current?.end?.();
  current = null;
  document.body.classList.toggle("at-find", route.view === "find");
  main.replaceChildren(box);
  if (document.activeElement === document.body && show.begun)
    main.focus({ preventScroll: true });
  show.begun = true;
  scrollTo(0, 0);
  if (route.view !== "find")
    drawSide(route.name);
}

query.addEventListener("input", () => {
  const q = query.value.trim();
  history.replaceState(null, "", q ? `#/find?q=${encodeURIComponent(query.value)}` : "#/find");
  show();
});

query.addEventListener("keydown", (event) => {
  const first = main.querySelector(".find .results a");
  if (event.key === "Enter" && first)
    first.click();
  else if (event.key === "ArrowDown" && first)
    first.focus();
  else
    return;
  event.preventDefault();
});

main.addEventListener("keydown", (event) => {
  const links = [...main.querySelectorAll(".find .results a, .find .groups a")].filter((link) => link.checkVisibility?.() ?? true);
  const at = links.indexOf(event.target);
  if (at < 0 || (event.key !== "ArrowDown" && event.key !== "ArrowUp"))
    return;
  event.preventDefault();
  (event.key === "ArrowDown" ? links[at + 1] : links[at - 1] ?? query)?.focus();
});

document.addEventListener("keydown", (event) => {
  const typing = event.target.closest("input, textarea, select, .CodeMirror");
  if (event.key === "/" && !typing && !event.ctrlKey && !event.metaKey && !event.altKey) {
    event.preventDefault();
    query.focus();
    query.select();
  }
});

document.getElementById("skip").addEventListener("click", (event) => {
  event.preventDefault();
  main.focus();
});

secrets.addEventListener("click", () => {
  showSecrets(!secretsShown());
  secrets.setAttribute("aria-pressed", String(secretsShown()));
});

document.getElementById("reset").addEventListener("click", () => confirm.showModal());
confirm.addEventListener("close", async () => {
  if (confirm.returnValue !== "reset")
    return;
  try {
    await api.reset();
    say("The gateway is as it was at the beginning.", "good");
    show();
  } catch (error) {
    say(`Not reset. ${error.message}`, "bad");
  }
});

addEventListener("hashchange", () => show());
show();
