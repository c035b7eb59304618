// What the server is asked. Contracts and lists do not change while it runs, so each is asked for once.

const once = new Map();

/** A refusal: its status and the problem document that explains it. */
export class Refusal extends Error {
  constructor(status, problem) {
    super(problem.detail || problem.title || `status ${status}`);
    this.status = status;
    this.problem = problem;
  }
}

const part = encodeURIComponent;

/** The path of a resource's records, or of one of them. */
export function recordPath(name, id) {
  return `/api/v1/gateway/${part(name)}${id === undefined ? "" : `/${part(id)}`}`;
}

async function ask(path, options = {}) {
  const answer = await fetch(path, options);
  if (answer.ok)
    return answer;
  let problem = {};
  try {
    problem = await answer.json();
  } catch {
    problem = { title: answer.statusText };
  }
  throw new Refusal(answer.status, problem);
}

function askOnce(path) {
  if (!once.has(path)) {
    const answer = ask(path).then((each) => each.json());
    once.set(path, answer);
    answer.catch(() => once.delete(path));
  }
  return once.get(path);
}

const document_ = (body, signal) =>
  ({ method: "POST", body, signal, headers: { "Content-Type": "application/json" } });

/** All resources; how many records each has may be out of date. */
export const resources = () => askOnce("/api/v1/resources");

/** All keys of all resources. */
export const keys = () => askOnce("/api/v1/keys");

/** The contract of a resource. */
export const contract = (name) => askOnce(`/api/v1/resources/${part(name)}`);

/** The ids of a resource's records, in order. */
export const ids = async (name) => (await ask(`/api/v1/ids/${part(name)}`)).json();

/** A record or, without an id, all of a resource: {bytes, text, etag}. */
export async function records(name, id) {
  const answer = await ask(recordPath(name, id), { cache: "no-store" });
  const bytes = new Uint8Array(await answer.arrayBuffer());
  return { bytes, text: new TextDecoder().decode(bytes), etag: answer.headers.get("ETag") };
}

/** What becomes of a document, and in what words. */
export const check = async (name, id, text, signal) =>
  (await ask(`/api/v1/check/${part(name)}?id=${part(id)}`, document_(text, signal))).json();

/** What the plug-in does with a document: as text, since numbers in it may be larger than a script's. */
export const trace = async (name, id, text, signal) =>
  (await ask(`/api/v1/trace/${part(name)}?id=${part(id)}`, document_(text, signal))).text();

/** Has the gateway take a document. match: the ETag that the record must still have, or nothing. */
export async function write(name, id, text, validate, match) {
  const headers = { "Content-Type": "application/json" };
  if (match)
    headers["If-Match"] = match;
  return (await ask(`${recordPath(name, id)}?validate=${validate}`, { method: "PUT", body: text, headers })).json();
}

/** Brings the beginning back. */
export const reset = () => ask("/api/v1/state:reset", { method: "POST" });
